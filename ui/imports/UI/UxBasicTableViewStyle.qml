import QtQuick 2.12
import QtQuick.Controls.Styles 1.4
import "."

// The look of the tables.
ScrollViewStyle {
    id: style

    property color textColor: UxTheme.text
    property color backgroundColor: control.backgroundVisible ? UxTheme.background : UxTheme.transparent
    property color alternateBackgroundColor: UxTheme.alternateRow
    property color highlightedTextColor: UxTheme.selectedText
    property bool activateItemOnSingleClick: false

    property Component headerDelegate: UxTableHeader {
        readonly property int position: styleData.column

        text: styleData.value
        hovered: styleData.containsMouse
        color: control.headerColor
        borderColor: control.cellBorderColor
        sorted: styleData.column >= 0 && control.sortedAt(styleData.column)
        Accessible.role: Accessible.ColumnHeader
        Accessible.name: styleData.value
        onPositionChanged: control.touchLayout()
    }
    property Component rowDelegate: Rectangle {
        height: control.rowHeight
        color: styleData.selected ? UxTheme.selection
                                  : styleData.alternate ? style.alternateBackgroundColor : style.backgroundColor
    }
    // A row's object in the role "item" is read itself, so that the cell follows its change signals; a plain value there
    // is shown as it is.
    property Component itemDelegate: UxToolTipText {
        readonly property var rowObject: model && typeof model.item === "object" ? model.item : null
        readonly property var shownValue: rowObject && styleData.role !== "" ? rowObject[styleData.role] : styleData.value

        leftPadding: 6
        rightPadding: 6
        text: shownValue === undefined || shownValue === null || typeof shownValue === "object" ? "" : shownValue
        color: styleData.textColor
        horizontalAlignment: styleData.textAlignment
    }

    incrementControl: null
    decrementControl: null
    handle: UxScrollHandle {}
    scrollBarBackground: UxScrollGround {}
    corner: Item {}
    frame: Rectangle {
        visible: control.frameVisible
        color: style.backgroundColor
        border.color: control.borderColor
    }
}
