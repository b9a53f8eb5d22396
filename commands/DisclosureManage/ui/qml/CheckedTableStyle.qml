import QtQuick 2.12
import UI 1.0

// A table's look with its tints: the current row, then the checked ones.
UxTableViewStyle {
    id: style

    highlightedTextColor: textColor
    rowDelegate: Rectangle {
        readonly property bool checked: model && model.item ? model.item.selected : false

        height: control.rowHeight
        color: styleData.selected ? UxTheme.currentRow
                                  : checked ? UxTheme.checkedRow
                                            : styleData.alternate ? style.alternateBackgroundColor
                                                                  : style.backgroundColor
    }
}
