import QtQuick 2.12
import "."

// A frame around a window's page that flashes when the window waits and something behind it was clicked.
Rectangle {
    id: mark

    function flash() { flashing.restart() }

    anchors.fill: parent
    z: 1
    color: UxTheme.transparent
    border.width: 3
    border.color: UxTheme.selection
    opacity: 0

    SequentialAnimation {
        id: flashing
        loops: 3
        NumberAnimation { target: mark; property: "opacity"; to: 1; duration: 100 }
        NumberAnimation { target: mark; property: "opacity"; to: 0; duration: 200 }
    }
}
