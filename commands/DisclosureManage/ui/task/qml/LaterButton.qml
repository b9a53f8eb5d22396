import QtQuick 2.12
import UI 1.0

// A button for what is still to come.
Item {
    property alias text: button.text

    implicitWidth: button.implicitWidth
    implicitHeight: UxTheme.fieldHeight

    UxButton {
        id: button
        anchors.fill: parent
        enabled: false
        Accessible.description: tip.text
    }
    ComingLaterTip { id: tip }
}
