import QtQuick 2.12
import "."
import "UxDates.js" as Dates

// A date field: text "yyyy-MM-dd", typed or picked from a calendar. Limits are dates or such texts; empty is no limit.
// What was typed and is no allowed date stays and is marked, refused() tells why, and Escape brings the date before back.
UxTextField {
    id: control

    property var minimumDate
    property var maximumDate
    // Why the text is not taken; empty when it is.
    property string wrong: ""
    property string accepted: ""
    property string told: ""
    property bool showing: false

    // The user chose, typed or cleared a date; text holds it already.
    readonly property string shownTip: hovered ? wrong : ""

    signal picked(string text)
    // A sentence for the user.
    signal refused(string why)

    function openCalendar() {
        calendar.open()
    }

    // Edits like a user: an assignment would break the binding that a screen has put on text.
    function show(newText) {
        wrong = told = ""
        showing = true
        if (text !== newText) {
            remove(0, length)
            insert(0, newText)
        }
        showing = false
    }

    function take(newText) {
        show(newText)
        if (newText !== accepted) {
            accepted = newText
            picked(newText)
        }
    }

    function whyNot(date, typed) {
        return !date ? qsTr("“%1”不是日期，请输入如%2的日期").arg(typed).arg(Dates.toText(new Date()))
             : date < Dates.first(minimumDate)
               ? qsTr("日期不能早于%1").arg(Dates.toText(Dates.first(minimumDate)))
               : qsTr("日期不能晚于%1").arg(Dates.toText(Dates.parse(maximumDate)))
    }

    function takeTyped() {
        var date = Dates.parse(text)
        if (text.trim() === "" || (date && Dates.within(date, minimumDate, maximumDate))) {
            take(Dates.toText(date))
            return
        }
        wrong = whyNot(date, text)
        if (told !== text)  // once for a text, whatever makes the field lose the keyboard
            tell()
        told = text
    }

    // Says why once more. A message opens only when the click that ended the typing has been handled, and not in the
    // middle of a wait for the service, which lets posted calls through and holds back timers.
    function tell() {
        teller.why = wrong
        teller.restart()
    }

    implicitWidth: 130
    rightPadding: 26
    inputMethodHints: Qt.ImhDate
    maximumLength: 20
    marked: wrong !== ""
    onShownTipChanged: UxToolTips.show(control, shownTip, true)
    // The text from outside is accepted as it is; only typing is judged, when it ends.
    onTextChanged: {
        if (activeFocus || showing)
            return
        accepted = text
        wrong = told = ""
    }
    onTextEdited: wrong = ""
    onActiveFocusChanged: if (activeFocus && wrong === "") accepted = text
    onEditingFinished: takeTyped()

    Keys.onDownPressed: openCalendar()
    Keys.onEscapePressed: {
        event.accepted = text !== accepted
        show(accepted)
    }

    Timer {
        id: teller

        property string why

        interval: 1
        onTriggered: control.refused(why)
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
    UxCalendarOpener {
        id: calendar
        field: control
        value: control.text
        minimumDate: control.minimumDate
        maximumDate: control.maximumDate
        onPicked: control.take(text)
        onClosed: control.forceActiveFocus()
    }
}
