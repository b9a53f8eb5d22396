import QtQuick 2.12
import "."

// Body text.
Text {
    color: UxTheme.text
    font.family: UxTheme.fontFamily
    font.pixelSize: UxTheme.fontSize
    textFormat: Text.PlainText  // what users typed is never markup
    renderType: Text.NativeRendering
}
