import QtQuick 2.12

// Tells whether the mouse is over it. A row that a table makes or uses again is shown before it has its place, and then
// takes a mouse that rests on another row for one on itself: what became hovered looks again once everything is placed.
MouseArea {
    property bool lookingAgain: false

    function lookAgain() {
        lookingAgain = true
        visible = false
        visible = true
        lookingAgain = false
    }

    acceptedButtons: Qt.NoButton
    hoverEnabled: true
    onContainsMouseChanged: if (containsMouse && !lookingAgain) Qt.callLater(lookAgain)
}
