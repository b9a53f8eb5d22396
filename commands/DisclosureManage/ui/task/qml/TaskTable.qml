import QtQuick 2.12
import UI 1.0
import "../../qml"

// One page of tasks. Only the cells of the current row are in the tab chain.
UxCheckBoxTableView {
    id: control

    // The distance from the first row, which lies under the header.
    function scrolled() { return flickableItem.contentY - flickableItem.originY }
    function scrollTo(top) {
        var list = flickableItem
        list.contentY = list.originY + Math.max(0, Math.min(top, list.contentHeight - list.height))
    }

    // Another reading of the same page keeps the place and the keyboard where they were.
    function showPage() {
        menu.source = ""  // its rows go
        var row = theTaskModel.page_reread ? currentRow : -1
        var top = theTaskModel.page_reread ? scrolled() : 0
        var left = theTaskModel.page_reread ? flickableItem.contentX : 0
        if (activeFocus)
            focusRows()  // a cell that has the keyboard goes
        model = theTaskModel.task_model.task_list
        currentRow = Math.min(row, rowCount - 1)
        flickableItem.forceLayout()
        scrollTo(top)
        flickableItem.contentX = left
    }

    function reveal(row) {
        currentRow = row
        focusRows()
    }

    // Widths and order as the user left them.
    function restoreLayout() {
        layout.restore(theUserSettings.value("taskColumns"))
        keeper.kept = layout.text()
    }

    checkStateRole: "selected"
    sortColumn: theTaskModel.search_ordercol
    sortAscending: theTaskModel.search_asc
    activeFocusOnTab: true
    Accessible.name: qsTr("交底任务")
    style: CheckedTableStyle {}
    onHeaderClicked: theTaskModel.sortByColumn(title, column)
    onLayoutTouched: keeper.restart()
    onMenuWanted: menu.wanted({}).openFor(control, row, x, y)

    UxTableColumn {
        title: qsTr("序号")
        width: 45
        delegate: UxToolTipText {
            text: theTaskModel.items_per_page * (theTaskModel.current_page - 1) + styleData.row + 1
            horizontalAlignment: Text.AlignHCenter
        }
    }
    UxTableColumn {
        title: qsTranslate("TaskManagerViewModel", "任务名称")
        role: "name"
        width: 170
        delegate: TaskTextCell { table: control; marksReleased: true; onOpened: theTaskModel.onEditTaskName(task) }
    }
    UxTableColumn {
        title: qsTr("关联BIM")
        role: "relBIMs"
        width: 110
        delegate: TaskTextCell { table: control; onOpened: theTaskModel.onEditBimInfo(task) }
    }
    UxTableColumn {
        title: qsTr("关联资料")
        role: "relFiles"
        width: 110
        delegate: TaskTextCell { table: control; onOpened: theTaskModel.onEditDocInfo(task) }
    }
    UxTableColumn {
        id: startColumn
        title: qsTranslate("TaskManagerViewModel", "施工开始日期")
        role: "start_show"
        width: 110
        delegate: TaskDateCell {
            column: startColumn.title
            maximumDate: task ? task.end_show : ""
        }
    }
    UxTableColumn {
        id: endColumn
        title: qsTranslate("TaskManagerViewModel", "施工结束日期")
        role: "end_show"
        width: 110
        delegate: TaskDateCell {
            column: endColumn.title
            minimumDate: task ? task.start_show : ""
        }
    }
    UxTableColumn {
        id: planColumn
        title: qsTranslate("TaskManagerViewModel", "计划交底日期")
        role: "plan_show"
        width: 110
        delegate: TaskDateCell { column: planColumn.title }
    }
    UxTableColumn {
        title: qsTranslate("TaskManagerViewModel", "交底人")
        role: "owner"
        width: 120
        delegate: TaskOwnerCell { table: control }
    }
    UxTableColumn {
        title: qsTr("预览")
        width: 45
        resizable: false
        delegate: TaskIconCell {
            iconSource: "qrc:/ui/Images/preview.png"
            hoveredIconSource: "qrc:/ui/Images/preview_hover.png"
            Accessible.name: qsTr("预览")
            onClicked: theTaskModel.onClickPreviewTask(task)
        }
    }
    UxTableColumn {
        title: qsTr("状态")
        role: "status"
        width: 70
        delegate: TaskStatusCell {}
    }
    UxTableColumn {
        title: qsTr("操作")
        width: 45
        resizable: false
        delegate: TaskIconCell {
            iconSource: "qrc:/ui/Images/edit.png"
            hoveredIconSource: "qrc:/ui/Images/edit_hover.png"
            pressedIconSource: "qrc:/ui/Images/edit_pressed.png"
            disabledIconSource: "qrc:/ui/Images/nopressed.png"
            enabled: theTaskModel.operBtnEnable
            Accessible.name: qsTr("编辑")
            onClicked: theTaskModel.ModifyTask(task)
        }
    }

    Component {
        id: plainColumn
        UxTableColumn {}
    }
    UxOnDemand {
        id: menu
        file: Qt.resolvedUrl("TaskMenu.qml")
    }
    // Once the hand rests: a column is told of at each step of a drag.
    Timer {
        id: keeper

        property string kept

        interval: 200
        onTriggered: {
            var text = control.layout.text()
            if (kept !== "" && text !== kept)
                theUserSettings.setValue("taskColumns", text)
            kept = text
        }
    }
    Connections {
        target: theTaskModel
        function onTaskModelChanged() { control.showPage() }
        function onTaskRevealed(row) { control.reveal(row) }
    }
    Component.onCompleted: {
        insertColumnAt(8, plainColumn.createObject(control, { title: qsTranslate("TaskManagerViewModel", "实际交底日期"),
                                                            width: 110, role: "real_show" }))
        insertColumnAt(12, plainColumn.createObject(control, { title: qsTranslate("TaskManagerViewModel", "更新时间"),
                                                             width: 95, role: "update_show" }))
        insertColumnAt(13, plainColumn.createObject(control, { title: qsTr("更新人"), width: 70, role: "updateperson" }))
        restoreLayout()
        if (theTaskModel.task_model)
            showPage()
    }
}
