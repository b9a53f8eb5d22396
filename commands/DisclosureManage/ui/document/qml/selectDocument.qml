import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// The picker of documents: the store's folders on the left, the documents of the selected one on the right.
DialogPage {
    id: root

    signal connectDocClick()

    title: qsTr("关联资料")

    RowLayout {
        Layout.fillWidth: true
        Layout.fillHeight: true
        spacing: 0

        FolderPane {
            Layout.fillHeight: true
            Layout.preferredWidth: 230
            Layout.minimumWidth: 230
            Layout.maximumWidth: 230
            Layout.leftMargin: 20
            Layout.rightMargin: 5
            Layout.topMargin: 10
            focus: true
        }
        ColumnLayout {
            Layout.leftMargin: 5
            Layout.rightMargin: 20
            Layout.topMargin: 5
            spacing: 8

            DocumentFilters { Layout.fillWidth: true }
            UxNoticeBar {
                Layout.fillWidth: true
                visible: connectDocMode.filterReading.failed
                text: qsTr("筛选条件") + connectDocMode.filterReading.text
                actionText: qsTr("重试")
                onActed: connectDocMode.read()
            }
            DocumentTable {
                Layout.fillWidth: true
                Layout.fillHeight: true

                UxPlaceholder {
                    anchors.fill: parent
                    anchors.topMargin: UxTheme.tableRowHeight  // below the header
                    anchors.margins: 1
                    reading: connectDocMode.reading
                    onRetried: connectDocMode.read()
                    onCleared: connectDocMode.clearFilters()
                }
            }
            UxPagingBar {
                id: pages
                Layout.alignment: Qt.AlignRight
                itemsPerPageModel: [15, 20, 30]
                totalCount: connectDocMode.total_count
                totalPage: connectDocMode.total_page
                onItemsPerPageChanged: connectDocMode.items_per_page = itemsPerPage
                onCurrentPageChanged: {
                    connectDocMode.currentPageSelection = String(currentPage)
                    currentPage = Number(connectDocMode.currentPageSelection)
                }
                onFirstPage: connectDocMode.onClickFirstPage()
                onPrevPage: connectDocMode.onClickPrePage()
                onNextPage: connectDocMode.onClickBackPage()
                onLastPage: connectDocMode.onClickLastPage()
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.leftMargin: 20
        Layout.rightMargin: 20
        Layout.topMargin: 10
        Layout.bottomMargin: 15
        spacing: 20

        UxText {
            Layout.fillWidth: true
            text: qsTr("已关联") + connectDocMode.allSelect + qsTr("份资料")
        }
        UxButton {
            text: qsTr("确定")
            onClicked: {
                connectDocMode.onClickOk()
                root.connectDocClick()
                root.close()
            }
        }
        UxButton {
            text: qsTr("取消")
            onClicked: {
                connectDocMode.onClickCancel()
                root.close()
            }
        }
    }

    // Bindings of their own, because the bar assigns both properties itself.
    Binding { target: pages; property: "itemsPerPage"; value: connectDocMode.items_per_page }
    Binding { target: pages; property: "currentPage"; value: Number(connectDocMode.currentPageSelection) }
}
