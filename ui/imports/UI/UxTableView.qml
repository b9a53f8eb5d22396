import QtQuick 2.12
import "."

// A table over a list model. A delegate reads the row's object as model.item, or a role by its name.
UxBasicTableView {
    id: control

    property var model
    property alias currentRow: control.__currentRow
    // A press on a row makes it the current row.
    property bool rowMouseSelectable: true
    // Dragging over rows does so, too.
    property bool selectByMouse: false
    readonly property int rowCount: __listView.count

    signal activated(int row)
    signal clicked()
    signal doubleClicked(int row)
    signal pressAndHold(int row)
    // A click with the right button, at a place in the table, or the menu key.
    signal menuWanted(int row, real x, real y)
    // A click on a column's header. A column keeps its number wherever it is dragged.
    signal headerClicked(int column, string title)

    function rowAt(x, y) {
        var point = mapToItem(__listView.contentItem, x, y)
        return __listView.indexAt(point.x, point.y)
    }

    // The keyboard moves over the rows, whatever control in a cell had it last.
    function focusRows() {
        rowKeys.forceActiveFocus()
    }

    function positionViewAtRow(row, mode) {
        __listView.positionViewAtIndex(row, mode)
    }

    style: UxTableViewStyle {}
    __viewTypeName: "TableView"
    __model: model
    __mouseArea: UxTableMouse { table: control }
    onModelChanged: currentRow = -1

    UxRowFrame { view: control }

    // The list would pass the keyboard on to the control inside it that had it last.
    Item {
        id: rowKeys
        parent: control.__listView
    }

    // The base answers a click on a header by moving its sort indicator there; anything laid over the header to see the
    // clicks would take the presses from its borders. An indicator that is shown is left to the base.
    sortIndicatorColumn: -1
    onSortIndicatorColumnChanged: {
        var position = sortIndicatorColumn
        if (sortIndicatorVisible || position < 0)
            return
        sortIndicatorColumn = -1
        tapHeader(layout.numberAt(position), getColumn(position).title)
    }

    function tapHeader(number, title) {
        headerClicked(number, title)
    }
}
