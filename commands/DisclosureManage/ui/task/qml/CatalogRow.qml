import QtQuick 2.12
import UI 1.0

// A row of a catalog tree. A long name is cut and shown whole in a tool tip.
Rectangle {
    readonly property string name: styleData.value ? styleData.value.nodeDisName : ""
    property bool whiteWhenSelected: true

    color: styleData.selected ? UxTheme.selection : UxTheme.background
    Accessible.role: Accessible.TreeItem
    Accessible.name: name
    Accessible.selected: styleData.selected
    Accessible.selectable: true

    UxToolTipText {
        anchors.fill: parent
        anchors.leftMargin: 2
        anchors.rightMargin: 2
        text: parent.name
        color: styleData.selected && parent.whiteWhenSelected ? UxTheme.selectedText : UxTheme.text
    }
}
