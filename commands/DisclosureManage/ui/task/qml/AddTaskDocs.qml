import QtQuick 2.12
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

            UxButton {
                Layout.preferredHeight: UxTheme.fieldHeight
                text: qsTr("关联资料库")
                onClicked: addTaskModel.onClickConnectDoc()
            }
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
        TaskDocs {
            Layout.fillWidth: true
            Layout.fillHeight: true
            documents: addTaskModel
        }
    }
}
