import QtQuick 2.12
import "."

// A date in a table cell that opens a calendar. It only asks: the owner of the value answers picked() by changing the
// value, or leaves it, and then the cell goes on showing the old one. Where it is not editable it still shows a date that
// is cut whole, which a disabled item could not.
Rectangle {
    id: control

    property string value: ""
    property var minimumDate
    property var maximumDate
    property color textColor: UxTheme.text
    property bool editable: true

    signal picked(string text)

    function openCalendar() {
        if (editable)
            calendar.open()
    }

    implicitWidth: label.implicitWidth + label.anchors.leftMargin + label.anchors.rightMargin
    implicitHeight: UxTheme.tableRowHeight
    color: UxTheme.transparent
    activeFocusOnTab: editable
    Accessible.role: editable ? Accessible.Button : Accessible.StaticText
    Accessible.name: value
    Accessible.onPressAction: openCalendar()
    Keys.enabled: editable
    Keys.onSpacePressed: openCalendar()
    Keys.onReturnPressed: openCalendar()
    Keys.onEnterPressed: openCalendar()

    UxTipText {
        id: label
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: icon.width + 6
        text: control.value
        hovered: area.containsMouse
        color: control.editable ? control.textColor : UxTheme.disabledText
    }
    Image {
        id: icon
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        width: UxTheme.smallIconSize
        height: UxTheme.smallIconSize
        visible: control.editable && (area.containsMouse || control.activeFocus)
        source: "qrc:/ui/Images/calendar.png"
    }
    UxHoverArea {
        id: area
        anchors.fill: parent
        acceptedButtons: control.editable ? Qt.LeftButton : Qt.NoButton
        onClicked: control.openCalendar()
    }
    UxFocusFrame { shown: control.activeFocus }

    UxCalendarOpener {
        id: calendar
        field: control
        value: control.value
        minimumDate: control.minimumDate
        maximumDate: control.maximumDate
        onPicked: control.picked(text)
    }
}
