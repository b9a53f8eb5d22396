import QtQuick 2.12
import "."

// The header of one column; where the table is sorted by it there is room for the arrow.
Rectangle {
    id: header

    property alias text: label.text
    property alias hovered: label.hovered
    property color borderColor: UxTheme.cellBorder
    property bool sorted: false

    height: UxTheme.tableRowHeight
    implicitWidth: label.implicitWidth + 12

    UxTipText {
        id: label
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: header.sorted ? UxTheme.smallIconSize : 6
        horizontalAlignment: Text.AlignHCenter
    }
    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: header.borderColor
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: header.borderColor
    }
}
