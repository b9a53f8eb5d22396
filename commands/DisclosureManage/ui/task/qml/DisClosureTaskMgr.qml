import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// The task list: its tools, one page of the selected catalog's tasks, and the page bar.
ColumnLayout {
    id: root

    spacing: 10

    TaskToolBar {
        id: tools
        Layout.fillWidth: true
        Layout.leftMargin: 20
        Layout.rightMargin: 20
        Layout.topMargin: 20
        table: table
    }
    UxNoticeBar {
        Layout.fillWidth: true
        Layout.leftMargin: 20
        Layout.rightMargin: 20
        visible: theTaskModel.reading.failed && !theTaskModel.reading.covers
        text: theTaskModel.reading.text + qsTr("。下面是之前读取的内容")
        actionText: qsTr("重试")
        onActed: theTaskModel.RefreshCurrentTaskInfo(true)
    }
    TaskTable {
        id: table
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 20
        Layout.rightMargin: 20
        Keys.onPressed: {
            var task = model && currentRow >= 0 ? model.at(currentRow) : null
            var opens = task && theTaskModel.operBtnEnable
            event.accepted = true
            if (event.key === Qt.Key_Delete && tools.rowsUsable)
                theTaskModel.OnDelTasks(checkedRowNumbers())
            else if (event.key === Qt.Key_F2 && opens)
                theTaskModel.onEditTaskName(task)
            else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && opens)
                theTaskModel.ModifyTask(task)
            else
                event.accepted = false
        }

        UxPlaceholder {
            anchors.fill: parent
            anchors.topMargin: UxTheme.tableRowHeight  // below the header
            anchors.margins: 1
            reading: theTaskModel.reading
            onRetried: theTaskModel.RefreshCurrentTaskInfo(true)
            onCleared: theTaskModel.clearFilters()
        }
    }
    RowLayout {
        Layout.leftMargin: 20
        Layout.rightMargin: 20
        Layout.bottomMargin: 20
        spacing: 6

        UxText {
            visible: theTaskModel.checked_count > 0
            text: qsTr("已选 %1 条").arg(theTaskModel.checked_count)
        }
        UxButton {
            visible: theTaskModel.checked_count > 0
            implicitHeight: UxTheme.fieldHeight
            text: qsTr("取消选择")
            onClicked: theTaskModel.uncheckAll()
        }
        Item { Layout.fillWidth: true }
        UxPagingBar {
            id: pages
            itemsPerPageModel: [15, 20, 30]
            totalCount: theTaskModel.shown_count
            totalPage: theTaskModel.total_page
            onItemsPerPageChanged: theTaskModel.items_per_page = itemsPerPage
            onCurrentPageChanged: {
                theTaskModel.current_page = currentPage
                currentPage = theTaskModel.current_page
            }
            onFirstPage: theTaskModel.firstPage()
            onPrevPage: theTaskModel.prevPage()
            onNextPage: theTaskModel.nextPage()
            onLastPage: theTaskModel.lastPage()
        }
    }

    // Bindings of their own, because the bar assigns both properties itself.
    Binding { target: pages; property: "itemsPerPage"; value: theTaskModel.items_per_page }
    Binding { target: pages; property: "currentPage"; value: theTaskModel.current_page }
}
