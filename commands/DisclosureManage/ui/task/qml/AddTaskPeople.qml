import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// The name of the task and its people.
ColumnLayout {
    property real captionSpace: 0
    readonly property Item nameField: name.field
    readonly property alias ownerButton: ownerButton
    readonly property alias receiverButton: receiverButton

    UxNameTextField {
        id: name
        Layout.fillWidth: true
        name: qsTr("任务名称：")
        mustfill: true
        editSpace: captionSpace
        value: addTaskModel.taskName
        onValueChanged: addTaskModel.taskName = value
        Component.onCompleted: {
            cursorPosition = 0
            field.focus = true
        }
    }
    UxNameTextField {
        Layout.fillWidth: true
        name: qsTr("交底人：")
        mustfill: true
        editSpace: captionSpace
        rightSpace: ownerButton.width + 10
        readOnly: true
        value: addTaskModel.disName
        onValueChanged: cursorPosition = 0

        UxButton {
            id: ownerButton
            anchors.right: parent.right
            height: UxTheme.fieldHeight
            text: qsTr("选择")
            Accessible.name: qsTr("选择交底人")
            onClicked: addTaskModel.onClickSelectOwner()
        }
    }
    UxNameTextField {
        Layout.fillWidth: true
        name: qsTr("接受交底人：")
        mustfill: true
        editSpace: captionSpace
        rightSpace: receiverButton.width + 10
        readOnly: true
        value: addTaskModel.receiveName
        onValueChanged: cursorPosition = 0

        UxButton {
            id: receiverButton
            anchors.right: parent.right
            height: UxTheme.fieldHeight
            text: qsTr("选择")
            Accessible.name: qsTr("选择接受交底人")
            onClicked: addTaskModel.onClickSelectReceiver()
        }
    }
}
