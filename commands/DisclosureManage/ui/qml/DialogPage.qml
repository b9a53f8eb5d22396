import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// The page of a dialog: a title bar, without a maximise button unless it is wanted, and below it what the dialog adds,
// from the top down. A double click on the title maximises, Escape closes.
Rectangle {
    id: root

    property alias title: titleBar.title
    property alias hasMaxButton: titleBar.hasMaxButton
    default property alias content: column.data

    signal close()
    signal toggleMaximized()
    signal titlebarPressed()
    signal titlebarPositionChanged()
    signal titlebarDbClick()

    // Something behind the dialog was clicked.
    function mark() { windowMark.flash() }

    color: UxTheme.background
    border.width: 1
    border.color: UxTheme.windowBorder
    Keys.onEscapePressed: close()

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: root.border.width
        spacing: 0

        WindowTitleBar {
            id: titleBar
            hasMaxButton: false
            onClose: root.close()
            onToggleMaximized: root.toggleMaximized()
            onTitlebarPressed: root.titlebarPressed()
            onTitlebarPositionChanged: root.titlebarPositionChanged()
            onTitlebarDbClick: root.titlebarDbClick()
        }
    }
    UxWindowMark { id: windowMark }
}
