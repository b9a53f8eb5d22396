import QtQuick 2.12
import "."
import "UxDates.js" as Dates

// The days of one month in six weeks that begin on Monday.
Grid {
    id: grid

    property date current: new Date()
    property var chosen: null
    property var minimumDate
    property var maximumDate
    readonly property date firstDay: {
        var first = new Date(current.getFullYear(), current.getMonth(), 1)
        return Dates.addDays(first, -((first.getDay() + 6) % 7))
    }

    signal picked(date day)

    columns: 7

    Repeater {
        model: qsTr("一 二 三 四 五 六 日").split(" ")
        UxText {
            width: UxTheme.calendarCell
            height: UxTheme.calendarCell
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: UxTheme.placeholderText
            text: modelData
        }
    }
    Repeater {
        model: 42
        Rectangle {
            readonly property date day: Dates.addDays(grid.firstDay, index)
            readonly property bool allowed: Dates.within(day, grid.minimumDate, grid.maximumDate)
            readonly property bool isChosen: grid.chosen !== null && day.getTime() === grid.chosen.getTime()
            readonly property bool isCurrent: day.getTime() === grid.current.getTime()
            readonly property bool isToday: Dates.toText(day) === Dates.toText(new Date())

            objectName: "day" + Dates.toText(day)
            width: UxTheme.calendarCell
            height: UxTheme.calendarCell
            color: isChosen ? UxTheme.selection : area.containsMouse && allowed ? UxTheme.buttonHovered : UxTheme.transparent
            border.color: isCurrent ? UxTheme.focusFrame : isToday ? UxTheme.border : UxTheme.transparent
            Accessible.role: Accessible.Cell
            Accessible.name: Dates.toText(day)

            UxText {
                anchors.centerIn: parent
                text: parent.day.getDate()
                font.strikeout: !parent.allowed
                color: !parent.allowed ? UxTheme.disabledText
                                       : parent.isChosen ? UxTheme.selectedText
                                                         : parent.day.getMonth() === grid.current.getMonth()
                                                           ? UxTheme.text : UxTheme.placeholderText
            }
            MouseArea {
                id: area
                anchors.fill: parent
                hoverEnabled: true
                enabled: parent.allowed
                onClicked: grid.picked(parent.day)
            }
        }
    }
}
