import QtQuick 2.12
import QtQuick.Controls 2.12
import QtQuick.Layouts 1.12
import "."
import "UxDates.js" as Dates

// The calendar that a date field opens. It is walked by the arrow keys, by Page Up and Page Down (with Shift: years),
// Home (today), Enter and Delete.
Popup {
    id: control

    property string value: ""
    property var minimumDate
    property var maximumDate

    // A date as text, or "" for none.
    signal picked(string text)

    function go(date) {
        grid.current = Dates.clamp(date, minimumDate, maximumDate)
    }

    function pick(text) {
        close()
        picked(text)
    }

    function handle(event) {
        var step = { [Qt.Key_Left]: -1, [Qt.Key_Right]: 1, [Qt.Key_Up]: -7, [Qt.Key_Down]: 7 }[event.key]
        var months = (event.key === Qt.Key_PageUp ? -1 : event.key === Qt.Key_PageDown ? 1 : 0)
                     * (event.modifiers & Qt.ShiftModifier ? 12 : 1)
        event.accepted = true
        if (step !== undefined)
            go(Dates.addDays(grid.current, step))
        else if (months !== 0)
            go(Dates.addMonths(grid.current, months))
        else if (event.key === Qt.Key_Home)
            go(Dates.parse(new Date()))
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                 && Dates.within(grid.current, minimumDate, maximumDate))
            pick(Dates.toText(grid.current))
        else if (event.key === Qt.Key_Delete)
            pick("")
        else
            event.accepted = false
    }

    y: parent ? parent.height : 0
    margins: 0
    padding: 8
    focus: true
    onAboutToShow: go(Dates.parse(value) || Dates.parse(new Date()))
    onOpened: days.forceActiveFocus()

    background: Rectangle {
        color: UxTheme.background
        border.color: UxTheme.border
    }
    contentItem: ColumnLayout {
        spacing: 4

        UxMonthBar {
            current: grid.current
            onStep: control.go(Dates.addMonths(grid.current, months))
        }
        FocusScope {
            id: days
            implicitWidth: grid.implicitWidth
            implicitHeight: grid.implicitHeight
            Accessible.role: Accessible.Table
            Accessible.name: Dates.toText(grid.current)
            Keys.onPressed: control.handle(event)

            UxMonthGrid {
                id: grid
                chosen: Dates.parse(control.value)
                minimumDate: control.minimumDate
                maximumDate: control.maximumDate
                onPicked: control.pick(Dates.toText(day))
            }
        }
        RowLayout {
            UxButton {
                objectName: "today"
                Layout.fillWidth: true
                text: qsTr("今天")
                enabled: Dates.within(Dates.parse(new Date()), control.minimumDate, control.maximumDate)
                onClicked: control.pick(Dates.toText(new Date()))
            }
            UxButton {
                objectName: "clear"
                Layout.fillWidth: true
                text: qsTr("清除")
                onClicked: control.pick("")
            }
        }
    }
}
