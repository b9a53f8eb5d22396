import QtQuick 2.12
import UI 1.0

// Whether a task is published: a filled dot or an empty one.
Item {
    id: mark

    property bool released: false
    property string text: ""

    width: dot.width

    Rectangle {
        id: dot
        anchors.verticalCenter: parent.verticalCenter
        width: 10
        height: 10
        radius: 5
        color: mark.released ? UxTheme.released : UxTheme.transparent
        border.width: 1.5
        border.color: mark.released ? UxTheme.released : UxTheme.disabledText
    }
    UxHoverArea {
        id: area
        anchors.fill: parent
        onContainsMouseChanged: UxToolTips.show(mark, containsMouse ? mark.text : "", false)
    }
}
