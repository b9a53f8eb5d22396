import QtQuick 2.12
import QtQuick.Layouts 1.12
import "."

// A cell of a UxGridTable that holds text.
Rectangle {
    id: control

    property alias text: label.text
    property bool boldFont: false
    property color textColor: UxTheme.text

    implicitWidth: label.implicitWidth + 16
    implicitHeight: UxTheme.tableRowHeight
    border.width: 1
    border.color: parent && parent.tableBorderColor !== undefined ? parent.tableBorderColor : UxTheme.border
    Layout.fillWidth: true
    Accessible.role: Accessible.Cell
    Accessible.name: text

    UxToolTipText {
        id: label
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        color: control.textColor
        font.bold: control.boldFont
        horizontalAlignment: Text.AlignLeft
        verticalAlignment: Text.AlignVCenter
    }
}
