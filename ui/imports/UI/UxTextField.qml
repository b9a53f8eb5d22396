import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// A field for one line of text.
TextField {
    id: control

    // What is typed cannot be taken as it is.
    property bool marked: false

    font.family: UxTheme.fontFamily
    font.pixelSize: UxTheme.fontSize
    color: enabled ? UxTheme.fieldText : UxTheme.disabledText
    placeholderTextColor: enabled ? UxTheme.placeholderText : UxTheme.disabledText
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
        color: control.enabled ? UxTheme.background : UxTheme.disabledBackground
        border.width: 1
        border.color: control.marked ? UxTheme.wrong : control.activeFocus ? UxTheme.fieldBorderFocused : UxTheme.border
    }
}
