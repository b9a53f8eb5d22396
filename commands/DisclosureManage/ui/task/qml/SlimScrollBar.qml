import QtQuick 2.12
import QtQuick.Controls 2.12
import UI 1.0

// A scroll bar that is there only when there is something to scroll.
ScrollBar {
    id: bar

    implicitWidth: UxTheme.scrollBarWidth
    padding: 2
    policy: size < 1 ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
    contentItem: Rectangle {
        radius: 3
        color: bar.hovered || bar.pressed ? UxTheme.scrollBarHovered : UxTheme.scrollBar
    }
}
