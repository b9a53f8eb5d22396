import QtQuick 2.12
import "."

// A scroll bar without its handle: the space that moves in.
Item {
    implicitWidth: UxTheme.scrollBarWidth
    implicitHeight: UxTheme.scrollBarWidth
}
