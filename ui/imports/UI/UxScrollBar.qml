import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// A scroll bar for a Flickable, there only when there is something to scroll.
ScrollBar {
    id: bar

    padding: 0
    policy: size < 1 ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
    contentItem: UxScrollHandle { hovered: bar.hovered || bar.pressed }
}
