import QtQuick 2.12
import QtQuick.Controls 2.12
import QtQuick.Window 2.12
import "."

// A tool tip: one line, or with wrapText and wherever the window is too narrow as many as the text needs.
ToolTip {
    id: control

    property bool wrapText: false
    // Without a window there is nothing to stay inside of.
    readonly property real windowRoom: parent && parent.Window.width > 0
                                       ? parent.Window.width - leftMargin - rightMargin - leftPadding - rightPadding
                                       : Infinity
    readonly property real room: Math.min(UxTheme.toolTipMaximumWidth - leftPadding - rightPadding, windowRoom)
    readonly property bool wraps: wrapText || whole.width > windowRoom

    height: label.lineCount > 1 ? UxTheme.toolTipLineHeight * label.lineCount : UxTheme.toolTipHeight
    // Measured apart from the label, whose own width follows the tool tip's.
    width: (wraps ? Math.min(Math.ceil(whole.width), room) : Math.ceil(whole.width)) + leftPadding + rightPadding
    x: parent ? (parent.width - width) / 2 : 0
    y: -height - 3
    delay: UxTheme.toolTipDelay
    padding: 0
    leftPadding: 8
    rightPadding: 8

    contentItem: UxText {
        id: label
        text: control.text
        wrapMode: control.wraps ? Text.WrapAnywhere : Text.NoWrap
        verticalAlignment: Text.AlignVCenter

        UxText {
            id: whole
            visible: false
            text: control.text
        }
    }
    background: Rectangle {
        color: UxTheme.background
        border.color: UxTheme.toolTipBorder
    }
}
