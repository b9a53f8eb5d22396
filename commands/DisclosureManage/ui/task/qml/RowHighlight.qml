import QtQuick 2.12
import UI 1.0

// The ground of a tree's row while that is selected, its indentation included.
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.leftMargin: -parent.x
    color: shown ? UxTheme.selection : UxTheme.transparent
}
