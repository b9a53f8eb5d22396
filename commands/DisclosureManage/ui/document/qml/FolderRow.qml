import QtQuick 2.12
import UI 1.0

// A folder with its icon. A long name is cut and shown whole in a tool tip.
Rectangle {
    readonly property string name: styleData.value ? styleData.value.nodeName : ""

    color: styleData.selected ? UxTheme.selection : UxTheme.background
    Accessible.role: Accessible.TreeItem
    Accessible.name: name
    Accessible.selected: styleData.selected
    Accessible.selectable: true

    Rectangle {  // the icon needs a ground of its own where the row is blue
        anchors.fill: icon
        anchors.margins: -1
        radius: 2
        visible: styleData.selected
        color: UxTheme.background
    }
    Image {
        id: icon
        x: 2
        anchors.verticalCenter: parent.verticalCenter
        width: UxTheme.smallIconSize
        height: UxTheme.smallIconSize
        source: "qrc:/ui/Images/folder.png"
    }
    UxToolTipText {
        anchors.left: icon.right
        anchors.leftMargin: 6
        anchors.right: parent.right
        anchors.rightMargin: 2
        height: parent.height
        text: parent.name
        color: styleData.selected ? UxTheme.selectedText : UxTheme.text
    }
}
