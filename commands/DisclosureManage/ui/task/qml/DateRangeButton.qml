import QtQuick 2.12
import QtQml 2.12
import UI 1.0

// Opens the menu of the usual date ranges, which fill both bounds of the date filter.
UxIconButton {
    id: button

    implicitWidth: UxTheme.fieldHeight
    implicitHeight: UxTheme.fieldHeight
    iconSource: "qrc:/ui/Images/combo.png"
    tooltipText: menu.visible ? "" : qsTr("常用日期范围")
    Accessible.name: qsTr("常用日期范围")
    onClicked: menu.popup(button, 0, button.height)

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
}
