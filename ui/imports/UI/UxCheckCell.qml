import QtQuick 2.12
import "."

// A check box that fills a cell; it only asks to be toggled.
Item {
    id: cell

    property alias checkState: indicator.checkState

    signal toggled()

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checkState === Qt.Checked
    Accessible.onToggleAction: toggled()

    UxCheckIndicator {
        id: indicator
        anchors.centerIn: parent
        hovered: area.containsMouse
    }
    UxHoverArea {
        id: area
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton
        onClicked: cell.toggled()
    }
}
