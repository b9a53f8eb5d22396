import QtQuick 2.12
import "."

// The handle of a scroll bar. The styles of Controls 1 tell it by styleData that the mouse is on it.
Item {
    property bool hovered: typeof styleData !== "undefined" && (styleData.hovered || styleData.pressed)

    implicitWidth: UxTheme.scrollBarWidth
    implicitHeight: UxTheme.scrollBarWidth

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        radius: 3
        color: parent.hovered ? UxTheme.scrollBarHovered : UxTheme.scrollBar
    }
}
