import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// A push button with text.
Button {
    id: control

    font.family: UxTheme.fontFamily
    font.pixelSize: UxTheme.fontSize
    hoverEnabled: true
    implicitWidth: Math.max(72, label.implicitWidth + 24)
    implicitHeight: 28
    padding: 0

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: UxText {
        id: label
        text: control.text
        font: control.font
        color: control.enabled ? UxTheme.fieldText : UxTheme.disabledText
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    background: Rectangle {
        radius: 0
        color: control.pressed ? UxTheme.buttonPressed : control.hovered ? UxTheme.buttonHovered : UxTheme.button
        border.width: 1
        border.color: control.pressed ? UxTheme.buttonBorderPressed
                                      : control.hovered ? UxTheme.buttonBorderHovered : UxTheme.border

        UxFocusFrame { shown: control.visualFocus }
    }
}
