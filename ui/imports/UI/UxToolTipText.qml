import QtQuick 2.12
import "."

// Text that shows itself whole in a tool tip while the mouse is over it and it is cut. Where something that takes the
// hovering lies above it, that has to set `hovered`.
UxTipText {
    hovered: area.containsMouse

    UxHoverArea {
        id: area
        anchors.fill: parent
    }
}
