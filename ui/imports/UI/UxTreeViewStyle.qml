import QtQuick 2.12
import QtQuick.Controls.Styles 1.4
import "."

// The look of the trees.
TreeViewStyle {
    id: style

    indentation: control.indentation
    textColor: UxTheme.text
    backgroundColor: control.backgroundColor
    highlightedTextColor: UxTheme.selectedText
    alternateBackgroundColor: control.backgroundColor
    padding.top: 1
    scrollToClickedPosition: true
    incrementControl: null
    decrementControl: null
    handle: UxScrollHandle {}
    scrollBarBackground: UxScrollGround {}
    frame: Rectangle {
        visible: control.hasBorder
        color: control.backgroundColor
        border.color: control.borderColor
    }
    rowDelegate: Rectangle {
        height: control.rowHeight
        color: styleData.selected && control.rowSelection ? UxTheme.selection : control.backgroundColor
    }
    itemDelegate: Rectangle {
        readonly property int implicitWidth: label.implicitWidth + 8

        color: styleData.selected ? UxTheme.selection : UxTheme.transparent
        Accessible.role: Accessible.TreeItem
        Accessible.name: label.text

        UxToolTipText {
            id: label
            anchors.fill: parent
            anchors.leftMargin: 4
            text: styleData.value ? styleData.value[control.textProperty] || "" : ""
            color: styleData.textColor
        }
    }
    // As wide as the indentation when it can be clicked, and no target for clicks otherwise.
    branchDelegate: Item {
        readonly property bool shown: control.expanderVisible && control.mayExpand(styleData.depth)

        width: shown ? Math.min(UxTheme.smallIconSize, style.indentation) : 0
        height: control.rowHeight

        Image {
            anchors.centerIn: parent
            visible: parent.shown
            width: UxTheme.smallIconSize
            height: UxTheme.smallIconSize
            source: "qrc:/ui/Images/tree/" + (styleData.isExpanded ? "open" : "closed")
                    + (styleData.selected && control.rowSelection ? "_selected.png" : ".png")
        }
    }
}
