import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// A filter with its caption: one of the choices is chosen.
RowLayout {
    id: filter

    property alias caption: label.text
    property alias popupMaxHeight: box.popupMaxHeight
    property var choices
    property var selection

    signal chosen(var choice)

    spacing: 10

    UxLabel { id: label }
    UxComboBox {
        id: box
        Layout.fillWidth: true
        model: filter.choices
        textRole: "name"
        Accessible.name: label.text
        onActivated: filter.chosen(filter.choices.at(index))
    }

    // A binding of its own, because the user's choice ends one on the property itself.
    Binding {
        target: box
        property: "currentIndex"
        value: box.count > 0 && filter.selection ? filter.choices.indexOf(filter.selection) : -1
    }
}
