import QtQuick 2.12
import "."

// The handle of a scroll bar; the bar itself is only the space it moves in.
Item {
    property bool hovered: false

    implicitWidth: UxTheme.scrollBarWidth
    implicitHeight: UxTheme.scrollBarWidth

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        radius: 3
        color: parent.hovered ? UxTheme.scrollBarHovered : UxTheme.scrollBar
    }
}
