import QtQuick 2.12
import UI 1.0

// The remark, and how much of its room is used.
Item {
    property real captionSpace: 0
    property alias form: overflow.form

    UxLabel {
        height: UxTheme.fieldHeight
        text: qsTr("备注：")
    }
    UxLabel {
        objectName: "remarkCount"
        anchors.bottom: parent.bottom
        width: captionSpace - 8
        horizontalAlignment: Text.AlignRight
        text: remark.length + "/" + remark.maxlength
        Accessible.name: qsTr("已输入%1字，最多%2字").arg(remark.length).arg(remark.maxlength)
    }
    UxTextArea {
        id: remark
        anchors.fill: parent
        anchors.leftMargin: captionSpace
        maxlength: 300
        maxlengthEnable: true
        text: addTaskModel.remark
        Accessible.name: qsTr("备注")
        onTextChanged: addTaskModel.remark = text

        WheelPass {
            id: overflow
            content: remark.flickableItem
        }
    }
}
