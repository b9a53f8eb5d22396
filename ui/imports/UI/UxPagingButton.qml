import QtQuick 2.12
import "."

// A small arrow button of the page bar, flat also while it cannot be used.
UxIconButton {
    implicitWidth: UxTheme.fieldHeight
    implicitHeight: UxTheme.fieldHeight
    disabledColor: UxTheme.transparent
}
