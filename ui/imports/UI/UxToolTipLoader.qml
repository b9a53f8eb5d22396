import QtQuick 2.12
import "."

// A tool tip for its parent, made on demand: a table holds hundreds of texts and shows one tool tip at most.
Loader {
    id: loader

    property bool shown: false
    property string toolTipText: ""
    property bool wrapText: false

    active: shown && toolTipText !== ""
    sourceComponent: UxToolTip {
        parent: loader.parent
        text: loader.toolTipText
        wrapText: loader.wrapText
        Component.onCompleted: open()  // made visible already it would not wait for its delay
    }
}
