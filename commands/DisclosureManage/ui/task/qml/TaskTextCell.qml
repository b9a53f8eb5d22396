import QtQuick 2.12
import UI 1.0

// A text that a double click, or Enter, opens for editing, as F2 does in the table.
UxToolTipText {
    id: cell

    readonly property var task: model && model.item ? model.item : null

    property var table
    // Where a task below the listed catalog lies, which the tool tip of its name says.
    readonly property string place: styleData.role === "name" && task ? task.catalog_path : ""
    // A filled dot stands before what is published, an empty one before what is not.
    property bool marksReleased: false
    readonly property string releasedText: task && task.released ? qsTr("已发布") : qsTr("未发布")

    signal opened()

    // A dialog opens only when the click has been handled.
    function open() {
        if (theTaskModel.operBtnEnable)
            Qt.callLater(opened)
    }

    leftPadding: marksReleased ? 22 : 6
    rightPadding: 6
    text: task ? task[styleData.role] : ""
    toolTipText: place === "" ? text : text + "\n" + qsTr("目录：") + place
    tooltipVisible: text !== "" && (truncated || place !== "")
    activeFocusOnTab: styleData.selected
    Accessible.role: Accessible.Button
    Accessible.name: marksReleased ? text + " " + releasedText : text
    Accessible.onPressAction: open()
    Keys.onReturnPressed: open()
    Keys.onEnterPressed: open()

    MouseArea {
        anchors.fill: parent
        onPressed: {
            cell.table.currentRow = styleData.row
            cell.table.focusRows()
        }
        onDoubleClicked: cell.open()
    }
    Loader {
        x: 6
        height: parent.height
        active: cell.marksReleased
        sourceComponent: TaskReleasedMark {
            released: cell.task !== null && cell.task.released
            text: cell.releasedText
        }
    }
    UxFocusFrame { shown: cell.activeFocus }
}
