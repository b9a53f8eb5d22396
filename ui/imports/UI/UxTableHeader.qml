import QtQuick 2.12
import "."

// The header of one column.
Rectangle {
    id: header

    property alias text: label.text
    property alias hovered: label.hovered
    property color borderColor: UxTheme.cellBorder
    property bool sorted: false
    property bool ascending: true

    height: UxTheme.tableRowHeight
    implicitWidth: label.implicitWidth + 12

    UxToolTipText {
        id: label
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: header.sorted ? UxTheme.smallIconSize : 6
        horizontalAlignment: Text.AlignHCenter
    }
    Image {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: header.sorted
        width: UxTheme.smallIconSize
        height: UxTheme.smallIconSize
        source: !header.sorted ? "" : header.ascending ? "qrc:/ui/Images/sort/ascending.png" : "qrc:/ui/Images/sort/descending.png"
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
