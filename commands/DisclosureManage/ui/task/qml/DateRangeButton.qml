import QtQuick 2.12
import UI 1.0

// Opens the menu of the usual date ranges, which fill both bounds of the date filter.
UxIconButton {
    id: button

    implicitWidth: UxTheme.fieldHeight
    implicitHeight: UxTheme.fieldHeight
    iconSource: "qrc:/ui/Images/combo.png"
    tooltipText: menu.item && menu.item.visible ? "" : qsTr("常用日期范围")
    Accessible.name: qsTr("常用日期范围")
    onClicked: menu.wanted({}).popup(button, 0, button.height)

    UxOnDemand {
        id: menu
        file: Qt.resolvedUrl("DateRangeMenu.qml")
    }
}
