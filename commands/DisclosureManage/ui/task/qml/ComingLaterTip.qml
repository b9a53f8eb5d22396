import QtQuick 2.12
import UI 1.0

// Lies over a control that is still disabled, and says so.
MouseArea {
    id: tip

    readonly property string text: qsTr("该功能将在后续版本提供")

    anchors.fill: parent
    acceptedButtons: Qt.NoButton
    hoverEnabled: true
    onContainsMouseChanged: UxToolTips.show(tip, containsMouse ? text : "", false)
}
