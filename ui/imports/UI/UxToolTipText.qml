import QtQuick 2.12
import "."

// Text that shows itself whole in a tool tip while the mouse is over it and it is cut.
UxText {
    id: control

    property string toolTipText: text
    // Where something that takes the hovering lies above the text, that has to tell it.
    property bool hovered: area.containsMouse
    property bool tooltipVisible: truncated && text !== ""
    property bool wrapText: false
    readonly property string shownTip: hovered && tooltipVisible ? toolTipText : ""

    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
    onShownTipChanged: UxToolTips.show(control, shownTip, wrapText)

    UxHoverArea {
        id: area
        anchors.fill: parent
    }
}
