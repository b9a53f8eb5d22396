import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// A text of one version, which can be chosen by a click or with the space bar.
Rectangle {
    id: cell

    property string text
    property bool isHead: false
    property bool isChoice: false
    property bool chosen: false

    signal picked()

    Layout.fillWidth: true
    Layout.fillHeight: true
    implicitHeight: label.implicitHeight + 14
    color: isHead ? UxTheme.tableHeader : isChoice && chosen ? UxTheme.menuHighlight : UxTheme.background
    border.color: UxTheme.cellBorder
    activeFocusOnTab: isChoice
    Accessible.role: isChoice ? Accessible.RadioButton : Accessible.StaticText
    Accessible.name: text
    Accessible.checkable: isChoice
    Accessible.checked: chosen
    Accessible.onPressAction: picked()
    Keys.enabled: isChoice
    Keys.onSpacePressed: picked()

    Rectangle {
        id: dot
        x: 8
        y: 8
        visible: cell.isChoice
        width: visible ? UxTheme.indicatorSize : 0
        height: UxTheme.indicatorSize
        radius: width / 2
        color: UxTheme.background
        border.color: cell.chosen ? UxTheme.selection : UxTheme.border

        Rectangle {
            anchors.centerIn: parent
            visible: cell.chosen
            width: 8
            height: 8
            radius: 4
            color: UxTheme.selection
        }
    }
    UxText {
        id: label
        anchors.left: dot.right
        anchors.right: parent.right
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        y: 7
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        color: cell.text === "" ? UxTheme.placeholderText : UxTheme.text
        text: cell.text === "" ? qsTr("（无）") : cell.text
    }
    MouseArea {
        anchors.fill: parent
        enabled: cell.isChoice
        onClicked: cell.picked()
    }
    UxFocusFrame { shown: cell.activeFocus }
}
