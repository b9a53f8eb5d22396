import QtQuick 2.12
import "."

// Stands where there is nothing to show, and says why: what is read still, is not there, or could not be read.
Rectangle {
    id: control

    // An object with text, covers, failed and excluded; null shows nothing.
    property var reading: null
    property string retryText: qsTr("重试")
    property string clearText: qsTr("清除条件")

    // The user wants it to be read again.
    signal retried()
    // The user takes back what left everything out.
    signal cleared()

    visible: reading !== null && reading.covers
    color: UxTheme.background

    MouseArea {  // nothing below takes a click
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onWheel: wheel.accepted = true
    }
    Column {
        anchors.centerIn: parent
        width: parent.width - 20
        spacing: 10

        UxText {
            width: parent.width
            text: control.reading ? control.reading.text : ""
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        UxButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: control.reading !== null && (control.reading.failed || control.reading.excluded)
            text: visible && control.reading.excluded ? control.clearText : control.retryText
            onClicked: control.reading.excluded ? control.cleared() : control.retried()
        }
    }
}
