import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// An entry of a context menu.
MenuItem {
    id: control

    font.family: UxTheme.fontFamily
    font.pixelSize: UxTheme.fontSize
    implicitWidth: Math.max(100, label.implicitWidth + leftPadding + rightPadding)
    implicitHeight: UxTheme.menuItemHeight
    padding: 0
    leftPadding: 16
    rightPadding: 16
    hoverEnabled: true

    contentItem: UxText {
        id: label
        text: control.text
        font: control.font
        color: control.enabled ? UxTheme.text : UxTheme.disabledText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    indicator: null
    arrow: null
    background: Rectangle {
        color: control.enabled && control.highlighted ? UxTheme.menuHighlight : UxTheme.transparent
    }
}
