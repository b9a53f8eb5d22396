import QtQuick 2.12
import "."
import "UxDates.js" as Dates

// A date field: text "yyyy-MM-dd", typed or picked from a calendar. Limits are dates or such texts; empty is no limit.
// What was typed and is no allowed date is put back, and refused() tells why.
UxTextField {
    id: control

    property var minimumDate
    property var maximumDate
    property string __accepted: ""
    property bool __showing: false

    // The user chose, typed or cleared a date; text holds it already.
    signal picked(string text)
    // A sentence for the user.
    signal refused(string why)

    function openCalendar() {
        calendar.active = true
        calendar.item.open()
    }

    // Edits like a user: an assignment would break the binding that a screen has put on text.
    function show(newText) {
        __showing = true
        if (text !== newText) {
            remove(0, length)
            insert(0, newText)
        }
        __showing = false
    }

    function take(newText) {
        show(newText)
        if (newText !== __accepted) {
            __accepted = newText
            picked(newText)
        }
    }

    function takeTyped() {
        var typed = text
        var date = Dates.parse(typed)
        if (typed === "" || (date && Dates.within(date, minimumDate, maximumDate))) {
            take(Dates.toText(date))
            return
        }
        show(__accepted)
        var why = !date ? qsTr("“%1”不是日期，请输入如%2的日期").arg(typed).arg(Dates.toText(new Date()))
                        : date < Dates.first(minimumDate)
                          ? qsTr("日期不能早于%1").arg(Dates.toText(Dates.first(minimumDate)))
                          : qsTr("日期不能晚于%1").arg(Dates.toText(Dates.parse(maximumDate)))
        Qt.callLater(refused, why)  // a message opens only when the click that ended the typing has been handled
    }

    implicitWidth: 130
    rightPadding: 26
    inputMethodHints: Qt.ImhDate
    validator: RegExpValidator { regExp: /\d{0,4}(-\d{0,2}(-\d{0,2})?)?/ }
    // The text from outside is accepted as it is; only typing is judged, when it ends.
    onTextChanged: if (!activeFocus && !__showing) __accepted = text
    onActiveFocusChanged: if (activeFocus) __accepted = text
    onEditingFinished: takeTyped()

    Keys.onDownPressed: openCalendar()
    Keys.onEscapePressed: {
        event.accepted = text !== __accepted
        show(__accepted)
    }

    UxIconButton {
        objectName: "openCalendar"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: UxTheme.fieldHeight
        implicitHeight: parent.height
        focusPolicy: Qt.NoFocus
        iconSource: "qrc:/ui/Images/calendar.png"
        disabledColor: UxTheme.transparent
        Accessible.name: qsTr("打开日历")
        onClicked: control.openCalendar()
    }
    Loader {
        id: calendar
        active: false
        sourceComponent: UxCalendarPopup {
            parent: control
            value: control.text
            minimumDate: control.minimumDate
            maximumDate: control.maximumDate
            onPicked: control.take(text)
            onClosed: control.forceActiveFocus()
        }
    }
}
