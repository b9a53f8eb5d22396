import QtQuick 2.12

// Opens a calendar below a field.
UxOnDemand {
    id: opener

    property Item field
    property string value: ""
    property var minimumDate
    property var maximumDate

    // A date as text, or "" for none.
    signal picked(string text)
    signal closed()

    function open() {
        var calendar = wanted({ parent: field }, function (made) {
            made.picked.connect(picked)
            made.closed.connect(closed)
        })
        calendar.value = value
        calendar.minimumDate = minimumDate
        calendar.maximumDate = maximumDate
        calendar.open()
    }

    file: Qt.resolvedUrl("UxCalendarPopup.qml")
}
