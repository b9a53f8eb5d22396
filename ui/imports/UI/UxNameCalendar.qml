import QtQuick 2.12
import "."

// A caption and a date field side by side.
Item {
    id: control

    property alias name: caption.name
    property alias value: field.text
    property alias minimumDate: field.minimumDate
    property alias maximumDate: field.maximumDate
    property real leftSpace: 0
    property real rightSpace: 0
    // From the caption's left edge to the field.
    property real calendarSpace: caption.width + 5
    // 0: the field takes all the width that is left; 1: it keeps its own.
    property int fillType: 0
    property bool mustfill: false
    readonly property alias field: field

    // The user chose, typed or cleared a date.
    signal picked(string text)
    // What was typed cannot be taken.
    signal refused(string why)

    implicitWidth: leftSpace + calendarSpace + field.implicitWidth + rightSpace
    implicitHeight: field.implicitHeight

    UxCaption {
        id: caption
        x: control.leftSpace
        anchors.verticalCenter: parent.verticalCenter
        mustfill: control.mustfill
    }
    UxCalendar {
        id: field
        x: control.leftSpace + control.calendarSpace
        anchors.verticalCenter: parent.verticalCenter
        width: control.fillType === 0 ? Math.max(0, control.width - x - control.rightSpace) : implicitWidth
        Accessible.name: control.name
        onPicked: control.picked(text)
        onRefused: control.refused(why)
    }
}
