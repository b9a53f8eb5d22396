import QtQuick 2.12
import "."

// The caption of a field, with a mark when the field has to be filled.
Row {
    property alias name: label.text
    property bool mustfill: false

    spacing: 2

    UxText {
        text: "✱"
        color: UxTheme.requiredMark
        visible: parent.mustfill
    }
    UxLabel { id: label }
}
