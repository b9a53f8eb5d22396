import QtQuick 2.12
import "."

// Text that shows itself whole in a tool tip while it is cut and something says that the mouse is over it.
UxText {
    id: control

    property string toolTipText: text
    property bool hovered: false
    property bool tooltipVisible: truncated && text !== ""
    property bool wrapText: false
    readonly property string shownTip: hovered && tooltipVisible ? toolTipText : ""

    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
    onShownTipChanged: UxToolTips.show(control, shownTip, wrapText)
}
