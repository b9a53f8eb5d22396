import QtQuick 2.12
import UI 1.0

// One bound of a date filter, which may refuse what was chosen; it is never empty.
UxCalendar {
    id: field

    property string day

    signal chosen(string text)

    width: 106
    onDayChanged: show(day)
    onPicked: {
        if (text !== "")
            chosen(text)
        show(day)
    }
    Component.onCompleted: show(day)
}
