import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// A field for one line of text.
TextField {
    id: control

    font.family: UxTheme.fontFamily
    font.pixelSize: UxTheme.fontSize
    color: enabled ? UxTheme.fieldText : UxTheme.disabledText
    placeholderTextColor: UxTheme.placeholderText
    selectionColor: UxTheme.selection
    selectedTextColor: UxTheme.selectedText
    implicitWidth: UxTheme.fieldWidth
    implicitHeight: UxTheme.fieldHeight
    padding: 0
    leftPadding: 6
    rightPadding: 6
    verticalAlignment: TextInput.AlignVCenter
    renderType: Text.NativeRendering
    selectByMouse: true

    background: Rectangle {
        color: UxTheme.background
        border.width: 1
        border.color: control.activeFocus ? UxTheme.fieldBorderFocused : UxTheme.border
    }
}
