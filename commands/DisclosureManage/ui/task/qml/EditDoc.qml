import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// The documents of a saved task.
DialogPage {
    id: root

    title: qsTr("关联资料")

    RowLayout {
        Layout.fillWidth: true
        Layout.margins: 15
        Layout.bottomMargin: 8
        spacing: 10

        UxButton {
            Layout.preferredHeight: UxTheme.fieldHeight
            focus: true
            text: qsTr("关联资料库")
            onClicked: theWnd.onClickConnectDoc()
        }
        UxButton {
            Layout.preferredHeight: UxTheme.fieldHeight
            text: qsTr("本地上传")
            onClicked: theWnd.onClickUploadDoc()
        }
    }
    TaskDocs {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 15
        Layout.rightMargin: 15
        documents: theWnd
    }
    UxText {
        Layout.fillWidth: true
        Layout.leftMargin: 15
        Layout.rightMargin: 15
        Layout.topMargin: 8
        visible: text !== ""
        wrapMode: Text.Wrap
        color: UxTheme.requiredMark
        text: theWnd.note
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    UxButton {
        Layout.alignment: Qt.AlignRight
        Layout.margins: 15
        Layout.topMargin: 10
        text: qsTr("确定")
        onClicked: theWnd.onClickOK()
    }
}
