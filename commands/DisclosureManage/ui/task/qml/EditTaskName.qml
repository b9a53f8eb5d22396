import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// The name of a task.
DialogPage {
    id: root

    function save() {
        theWnd.onClickOk()
        nameField.field.forceActiveFocus()  // where a refused name is corrected
    }

    title: qsTr("修改任务名称")

    UxNameTextField {
        id: nameField
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.maximumWidth: 600
        Layout.alignment: Qt.AlignHCenter
        Layout.leftMargin: 15
        Layout.rightMargin: 15
        name: qsTr("任务名称：")
        mustfill: true
        value: theWnd.taskName
        onValueChanged: theWnd.taskName = value
        onAccepted: root.save()
        Component.onCompleted: {
            field.focus = true
            field.persistentSelection = true  // the keyboard comes and goes while a window opens
            field.selectAll()
        }
    }
    UxText {
        Layout.fillWidth: true
        Layout.maximumWidth: 600
        Layout.alignment: Qt.AlignHCenter
        Layout.leftMargin: 15
        Layout.rightMargin: 15
        Layout.bottomMargin: 10
        visible: text !== ""
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
        color: UxTheme.requiredMark
        textFormat: Text.PlainText
        text: theWnd.note
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    DialogButtons {
        Layout.fillWidth: true
        onAccepted: root.save()
        onRejected: root.close()
    }
}
