import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// The caption of a field.
Label {
    color: UxTheme.fieldText
    font.family: UxTheme.fontFamily
    font.pixelSize: UxTheme.fontSize
    renderType: Text.NativeRendering
    verticalAlignment: Text.AlignVCenter
}
