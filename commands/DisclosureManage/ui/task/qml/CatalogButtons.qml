import QtQuick 2.12
import UI 1.0

// The strip of buttons under the catalog tree.
Rectangle {
    id: strip

    property var pane

    implicitHeight: 46
    color: UxTheme.background
    border.width: 1
    border.color: UxTheme.windowBorder

    Row {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        anchors.topMargin: (strip.height - 32) / 2

        UxIconButton {
            iconSource: "qrc:/ui/Images/add.png"
            tooltipText: qsTr("新建")
            enabled: theModel.newBuildEnable
            onClicked: strip.pane.create()
        }
        UxIconButton {
            iconSource: "qrc:/ui/Images/edit.png"
            tooltipText: qsTr("重命名")
            enabled: theModel.nodeOperEnable
            onClicked: strip.pane.rename()
        }
        UxIconButton {
            iconSource: "qrc:/ui/Images/del.png"
            tooltipText: qsTr("删除")
            enabled: theModel.nodeOperEnable
            onClicked: strip.pane.remove()
        }
        UxIconButton {
            iconSource: "qrc:/ui/Images/up.png"
            tooltipText: qsTr("上移")
            enabled: theModel.nodeOperEnable
            onClicked: strip.pane.moveUp()
        }
        UxIconButton {
            iconSource: "qrc:/ui/Images/down.png"
            tooltipText: qsTr("下移")
            enabled: theModel.nodeOperEnable
            onClicked: strip.pane.moveDown()
        }
    }
}
