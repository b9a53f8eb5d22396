import QtQuick 2.12
import "."

// Shows at which row of a list the keyboard is.
UxFocusFrame {
    property var view

    parent: view.__listView.currentItem
    anchors.margins: 0
    z: 1
    shown: view.activeFocus
}
