import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// A context menu of UxMenuItems.
Menu {
    background: Rectangle {
        implicitWidth: 100
        implicitHeight: 40
        color: UxTheme.menuBackground
        border.color: UxTheme.menuBorder
    }
}
