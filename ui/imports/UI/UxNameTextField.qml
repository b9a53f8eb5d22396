import QtQuick 2.12
import "."

// A caption and a text field side by side.
Item {
    id: control

    property alias name: caption.name
    property alias value: field.text
    property alias placeholderText: field.placeholderText
    property alias readOnly: field.readOnly
    property alias cursorPosition: field.cursorPosition
    property real rightSpace: 0
    // From the left edge to the field.
    property real editSpace: caption.width + 5
    // 0: the field takes all the width that is left; 1: it keeps its own.
    property int fillType: 0
    property bool mustfill: false
    readonly property alias field: field

    signal accepted()
    signal editingFinished()

    implicitWidth: editSpace + field.implicitWidth + rightSpace
    implicitHeight: field.implicitHeight

    UxCaption {
        id: caption
        anchors.verticalCenter: parent.verticalCenter
        mustfill: control.mustfill
    }
    UxTextField {
        id: field
        x: control.editSpace
        anchors.verticalCenter: parent.verticalCenter
        width: control.fillType === 0 ? Math.max(0, control.width - x - control.rightSpace) : implicitWidth
        Accessible.name: control.name
        onAccepted: control.accepted()
        onEditingFinished: control.editingFinished()
    }
}
