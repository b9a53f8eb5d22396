import QtQuick 2.12
import QtQuick.Controls 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// The documents that the task is linked with.
Item {
    property real captionSpace: 0
    readonly property alias uploadButton: uploadButton

    UxCaption {
        y: (UxTheme.fieldHeight - height) / 2
        mustfill: true
        name: qsTr("关联资料：")
    }
    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: captionSpace

        RowLayout {
            spacing: 10

            LaterButton { text: qsTr("关联资料库") }
            UxButton {
                id: uploadButton
                Layout.preferredHeight: UxTheme.fieldHeight
                text: qsTr("本地上传")
                onClicked: addTaskModel.onClickUploadDoc()
            }
            UxToolTipText {
                Layout.fillWidth: true
                wrapText: true
                color: UxTheme.placeholderText
                text: addTaskModel.docsHint
            }
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.fillHeight: true
            color: UxTheme.background
            border.color: list.activeFocus ? UxTheme.fieldBorderFocused : UxTheme.treeBorder

            ListView {
                id: list
                anchors.fill: parent
                anchors.margins: 1
                clip: true
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                ScrollBar.vertical: UxScrollBar {}
                model: addTaskModel.connectdoclist
                currentIndex: -1
                Accessible.role: Accessible.List
                Accessible.name: qsTr("关联资料")
                onModelChanged: currentIndex = -1
                Keys.onDeletePressed: addTaskModel.onClickDelDocItem(currentIndex)
                delegate: LinkRow {
                    width: list.width
                    height: 30
                    name: modelData
                    selected: ListView.isCurrentItem
                    viewable: addTaskModel.canViewDocs
                    Accessible.role: Accessible.ListItem
                    onViewWanted: addTaskModel.onClickViewDocItem(index)
                    onRemoveWanted: addTaskModel.onClickDelDocItem(index)

                    MouseArea {
                        anchors.fill: parent
                        z: -1
                        onClicked: {
                            list.currentIndex = index
                            list.forceActiveFocus()
                        }
                    }
                }
            }
        }
    }
}
