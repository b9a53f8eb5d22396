import QtQuick 2.12
import UI 1.0

// A text that a double click, or Enter, opens for editing, as F2 does in the table.
UxToolTipText {
    id: cell

    readonly property var task: model && model.item ? model.item : null

    property var table
    // The task lies below the listed catalog: the tool tip of its name says where.
    readonly property bool liesBelow: styleData.role === "name" && task !== null && task.catalog_path !== ""

    signal opened()

    // A dialog opens only when the click has been handled.
    function open() {
        if (theTaskModel.operBtnEnable)
            Qt.callLater(opened)
    }

    leftPadding: 6
    rightPadding: 6
    text: task ? task[styleData.role] : ""
    toolTipText: liesBelow ? text + "\n" + qsTr("目录：") + task.catalog_path : text
    tooltipVisible: text !== "" && (truncated || liesBelow)
    activeFocusOnTab: styleData.selected
    Accessible.role: Accessible.Button
    Accessible.name: text
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
    UxFocusFrame { shown: cell.activeFocus }
}
