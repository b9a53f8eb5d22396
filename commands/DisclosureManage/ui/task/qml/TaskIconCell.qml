import QtQuick 2.12
import UI 1.0

// A command on one task.
UxIconButton {
    readonly property var task: model && model.item ? model.item : null

    // What has the keyboard cannot leave the tab chain.
    focusPolicy: styleData.selected || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    disabledColor: UxTheme.transparent
}
