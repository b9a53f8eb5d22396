import QtQuick 2.12
import QtQml 2.12
import UI 1.0

// Opens the menu of the usual date ranges, which fill both bounds of the date filter.
UxIconButton {
    id: button

    implicitWidth: UxTheme.fieldHeight
    implicitHeight: UxTheme.fieldHeight
    iconSource: "qrc:/ui/Images/combo.png"
    tooltipText: menu.item && menu.item.visible ? "" : qsTr("常用日期范围")
    Accessible.name: qsTr("常用日期范围")
    onClicked: {
        menu.active = true  // made when it is first wanted
        menu.item.popup(button, 0, button.height)
    }

    Loader {
        id: menu
        active: false
        sourceComponent: UxMenu {
            id: ranges

            Instantiator {
                model: theTaskModel.date_ranges
                delegate: UxMenuItem {
                    text: modelData
                    onTriggered: theTaskModel.chooseDateRange(index)
                }
                onObjectAdded: ranges.insertItem(index, object)
                onObjectRemoved: ranges.removeItem(object)
            }
        }
    }
}
