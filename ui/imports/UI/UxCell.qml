import QtQuick 2.12
import QtQuick.Layouts 1.12
import "."

// A cell of a UxGridTable; its delegate sees the text as cellText.
Rectangle {
    id: control

    property string text: ""
    property Component delegate: UxText {
        text: cellText
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    implicitWidth: 100
    implicitHeight: UxTheme.tableRowHeight
    border.width: 1
    border.color: parent && parent.tableBorderColor !== undefined ? parent.tableBorderColor : UxTheme.border
    Layout.fillWidth: true
    Accessible.role: Accessible.Cell
    Accessible.name: text

    Loader {
        readonly property string cellText: control.text

        anchors.fill: parent
        anchors.margins: 1
        sourceComponent: control.delegate
    }
}
