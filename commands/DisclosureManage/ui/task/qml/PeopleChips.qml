import QtQuick 2.12
import QtQuick.Controls 2.12
import UI 1.0

// Names one after the other, each with a button that takes it out. Laid out in lines by itself, since a positioner would
// make all of thousands of names.
Rectangle {
    id: chips

    property var names: []

    signal removeWanted(int index)

    // Lines of {name, index, width}.
    function lines(names, room) {
        var all = []
        var line = []
        var used = 0
        for (var i = 0; i < names.length && room > 0; ++i) {
            var width = Math.min(Math.ceil(metrics.advanceWidth(names[i])) + 32, room)
            if (line.length > 0 && used + width > room) {
                all.push(line)
                line = []
                used = 0
            }
            line.push({ name: names[i], index: i, width: width })
            used += width + list.gap
        }
        if (line.length > 0)
            all.push(line)
        return all
    }

    color: UxTheme.background
    border.color: UxTheme.border

    FontMetrics {
        id: metrics
        font.family: UxTheme.fontFamily
        font.pixelSize: UxTheme.fontSize
    }
    ListView {
        id: list

        readonly property int gap: 4
        readonly property int lineHeight: 25
        readonly property var lines: chips.lines(chips.names, width - UxTheme.scrollBarWidth)

        // Another model starts at its top, but taking a name out should not lead away from the place.
        onLinesChanged: {
            var top = contentY
            model = lines
            contentY = Math.max(0, Math.min(top, lines.length * (lineHeight + gap) - gap - height))
        }

        anchors.fill: parent
        anchors.margins: 3
        clip: true
        spacing: gap
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: UxScrollBar {}
        delegate: Row {
            spacing: list.gap

            Repeater {
                model: modelData

                Rectangle {
                    width: modelData.width
                    height: list.lineHeight
                    color: UxTheme.titleBar
                    border.color: UxTheme.border
                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.name

                    UxToolTipText {
                        anchors.fill: parent
                        anchors.leftMargin: 6
                        anchors.rightMargin: 22
                        text: modelData.name
                    }
                    UxIconButton {
                        anchors.right: parent.right
                        anchors.rightMargin: 4
                        anchors.verticalCenter: parent.verticalCenter
                        implicitWidth: UxTheme.smallIconSize
                        implicitHeight: UxTheme.smallIconSize
                        iconSource: "qrc:/ui/Images/delete.png"
                        hoveredIconSource: "qrc:/ui/Images/deletehover.png"
                        Accessible.name: qsTr("删除") + modelData.name
                        onClicked: chips.removeWanted(modelData.index)
                    }
                }
            }
        }
    }
}
