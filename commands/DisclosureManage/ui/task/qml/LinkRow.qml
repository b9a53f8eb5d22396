import QtQuick 2.12
import UI 1.0

// Something a task is linked with. What can be selected can be viewed and removed.
Item {
    id: row

    property string name: ""
    // What is to be said of it in its tool tip.
    property string note: ""
    property color textColor: UxTheme.text
    property url iconSource
    property bool selectable: true
    property bool selected: false
    property bool viewable: false
    readonly property bool highlighted: selectable && selected

    signal viewWanted()
    signal removeWanted()

    Accessible.name: name
    Accessible.description: note
    Accessible.selectable: selectable
    Accessible.selected: highlighted

    RowHighlight { shown: row.highlighted }
    // Blue icons need a ground of their own where the row is blue.
    Rectangle {
        anchors.fill: icon
        anchors.margins: -1
        radius: 2
        visible: row.highlighted && icon.visible
        color: UxTheme.background
    }
    Image {
        id: icon
        x: visible ? 4 : 0
        anchors.verticalCenter: parent.verticalCenter
        visible: row.iconSource != ""
        width: visible ? UxTheme.smallIconSize : 0
        height: UxTheme.smallIconSize
        source: row.iconSource
    }
    UxToolTipText {
        anchors.left: icon.right
        anchors.leftMargin: 6
        anchors.right: buttons.left
        anchors.rightMargin: 6
        height: parent.height
        text: row.name
        toolTipText: row.note === "" ? text : text + "\n" + row.note
        tooltipVisible: text !== "" && (truncated || row.note !== "")
        wrapText: row.note !== ""
        color: row.highlighted ? UxTheme.selectedText : row.textColor
    }
    Rectangle {
        anchors.fill: buttons
        anchors.margins: -1
        radius: 2
        visible: row.highlighted
        color: UxTheme.background
    }
    Row {
        id: buttons
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        visible: row.selectable
        spacing: 6

        Item {
            width: UxTheme.smallIconSize
            height: UxTheme.smallIconSize

            UxIconButton {
                anchors.fill: parent
                enabled: row.viewable
                iconSource: "qrc:/ui/Images/look.png"
                hoveredIconSource: "qrc:/ui/Images/lookhover.png"
                disabledColor: UxTheme.transparent
                tooltipText: qsTr("查看")
                onClicked: row.viewWanted()
            }
            ComingLaterTip { visible: !row.viewable }
        }
        UxIconButton {
            implicitWidth: UxTheme.smallIconSize
            implicitHeight: UxTheme.smallIconSize
            iconSource: "qrc:/ui/Images/delete.png"
            hoveredIconSource: "qrc:/ui/Images/deletehover.png"
            tooltipText: qsTr("删除")
            onClicked: row.removeWanted()
        }
    }
}
