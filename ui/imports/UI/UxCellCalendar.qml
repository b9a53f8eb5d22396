import QtQuick 2.12
import "."

// A date in a table cell that opens a calendar. It only asks: the owner of the value answers picked() by changing the
// value, or leaves it, and then the cell goes on showing the old one.
Rectangle {
    id: control

    property string value: ""
    property var minimumDate
    property var maximumDate
    property color textColor: UxTheme.text

    signal picked(string text)

    function openCalendar() {
        calendar.active = true
        calendar.item.open()
    }

    implicitWidth: 110
    implicitHeight: UxTheme.tableRowHeight
    color: UxTheme.transparent
    activeFocusOnTab: enabled
    Accessible.role: Accessible.Button
    Accessible.name: value
    Accessible.onPressAction: openCalendar()
    Keys.onSpacePressed: openCalendar()
    Keys.onReturnPressed: openCalendar()
    Keys.onEnterPressed: openCalendar()

    UxToolTipText {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: icon.width + 6
        text: control.value
        color: control.enabled ? control.textColor : UxTheme.disabledText
    }
    Image {
        id: icon
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        width: UxTheme.smallIconSize
        height: UxTheme.smallIconSize
        visible: control.enabled && (area.containsMouse || control.activeFocus)
        source: "qrc:/ui/Images/calendar.png"
    }
    MouseArea {
        id: area
        anchors.fill: parent
        hoverEnabled: true
        onClicked: control.openCalendar()
    }
    UxFocusFrame { shown: control.activeFocus }

    // Made on demand: a table shows dozens of these cells.
    Loader {
        id: calendar
        active: false
        sourceComponent: UxCalendarPopup {
            parent: control
            value: control.value
            minimumDate: control.minimumDate
            maximumDate: control.maximumDate
            onPicked: control.picked(text)
        }
    }
}
