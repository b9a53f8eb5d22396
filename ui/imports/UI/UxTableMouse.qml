import QtQuick 2.12

// Mouse and keys of a table: the current row is the selected one.
MouseArea {
    id: area

    property var table
    property int pressedRow: -1
    property int pressedColumn: -1

    function selected(row) {
        return table.selectionMode !== 0 && row >= 0 && row === table.currentRow
    }

    function rowUnder(mouse) {
        return table.__listView.indexAt(0, mouse.y + table.__listView.contentY)
    }

    function release() {
        pressedRow = -1
        pressedColumn = -1
    }

    function showRow(row) {
        if (table.rowCount > 0)
            table.currentRow = Math.max(0, Math.min(row, table.rowCount - 1))
    }

    parent: table.__listView
    width: table.__listView.width
    height: table.__listView.height
    z: -1
    acceptedButtons: Qt.LeftButton | Qt.RightButton
    propagateComposedEvents: true
    preventStealing: true

    onPressed: {
        pressedRow = rowUnder(mouse)
        pressedColumn = table.__listView.columnAt(mouse.x + table.__listView.contentX)
        table.focusRows()
        if (pressedRow >= 0 && table.rowMouseSelectable)
            table.currentRow = pressedRow
    }
    onPositionChanged: {
        var row = rowUnder(mouse)
        if (pressed && row >= 0 && table.rowMouseSelectable && table.selectByMouse)
            table.currentRow = row
    }
    onReleased: release()
    onCanceled: release()
    onExited: release()
    onClicked: {
        if (rowUnder(mouse) < 0)
            return
        if (mouse.button === Qt.RightButton)
            return table.menuWanted(rowUnder(mouse), mouse.x, mouse.y)
        if (table.__activateItemOnSingleClick)
            table.activated(rowUnder(mouse))
        table.clicked()
    }
    onDoubleClicked: {
        if (rowUnder(mouse) < 0 || mouse.button !== Qt.LeftButton)
            return
        if (!table.__activateItemOnSingleClick)
            table.activated(rowUnder(mouse))
        table.doubleClicked(rowUnder(mouse))
    }
    onPressAndHold: if (rowUnder(mouse) >= 0) table.pressAndHold(rowUnder(mouse))

    Keys.forwardTo: [table]
    Keys.onUpPressed: showRow(table.currentRow - 1)
    Keys.onDownPressed: showRow(table.currentRow + 1)
    Keys.onReturnPressed: if (table.currentRow >= 0) table.activated(table.currentRow)
    Keys.onEnterPressed: if (table.currentRow >= 0) table.activated(table.currentRow)
    Keys.onMenuPressed: {
        var row = table.__listView.currentItem
        if (row)
            table.menuWanted(table.currentRow, 40, row.mapToItem(area, 0, row.height).y)
    }
    Keys.onPressed: {
        var page = Math.max(1, Math.floor(table.__listView.height / table.rowHeight) - 1)
        event.accepted = true
        if (event.key === Qt.Key_Home)
            showRow(0)
        else if (event.key === Qt.Key_End)
            showRow(table.rowCount - 1)
        else if (event.key === Qt.Key_PageUp)
            showRow(table.currentRow - page)
        else if (event.key === Qt.Key_PageDown)
            showRow(table.currentRow + page)
        else
            event.accepted = false
    }
}
