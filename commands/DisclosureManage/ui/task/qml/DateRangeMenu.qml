import QtQuick 2.12
import QtQml 2.12
import UI 1.0

// The usual date ranges.
UxMenu {
    id: menu

    Instantiator {
        model: theTaskModel.date_ranges
        delegate: UxMenuItem {
            text: modelData
            onTriggered: theTaskModel.chooseDateRange(index)
        }
        onObjectAdded: menu.insertItem(index, object)
        onObjectRemoved: menu.removeItem(object)
    }
}
