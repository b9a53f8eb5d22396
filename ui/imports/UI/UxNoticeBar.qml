import QtQuick 2.12
import QtQuick.Layouts 1.12
import "."

// A strip that says what is wrong with what it stands beside, with a button against it.
Rectangle {
    id: control

    property string text: ""
    property string actionText: ""

    signal acted()

    implicitHeight: line.implicitHeight + 8
    color: UxTheme.notice
    border.color: UxTheme.noticeBorder
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    RowLayout {
        id: line
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 10
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        UxText {
            Layout.fillWidth: true
            text: control.text
            wrapMode: Text.Wrap
        }
        UxButton {
            visible: control.actionText !== ""
            implicitHeight: UxTheme.fieldHeight
            implicitWidth: 56
            text: control.actionText
            onClicked: control.acted()
        }
    }
}
