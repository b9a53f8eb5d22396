import QtQuick 2.12
import "."

// Shows which control the keyboard talks to.
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: 2
    color: UxTheme.transparent
    border.color: UxTheme.focusFrame
    visible: shown
}
