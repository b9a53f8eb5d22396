import QtQuick 2.12

// The order and the widths of a table's columns, which the user changes in the header.
QtObject {
    id: layout

    property var view
    // The columns in the order of the program, whatever the user made of it.
    property var defined: []

    function shown() {
        var columns = []
        for (var i = 0; i < view.columnCount; ++i)
            columns.push(view.getColumn(i))
        return columns
    }

    // Its number in the program's order.
    function numberAt(position) {
        var number = defined.indexOf(view.getColumn(position))
        return number < 0 ? position : number
    }

    function define(number, column) {
        defined = defined.slice(0, number).concat([column], defined.slice(number))
    }

    // What restore() takes: a text that can be kept.
    function text() {
        return JSON.stringify(shown().filter(function (column) { return column.movable })
                                     .map(function (column) { return [column.name, column.width] }))
    }

    // Columns that the text does not name come last; a text that is none of ours changes nothing.
    function restore(text) {
        var wanted = []
        try {
            wanted = JSON.parse(text)
        } catch (error) {
            return
        }
        var next = shown().findIndex(function (column) { return column.movable })
        for (var i = 0; Array.isArray(wanted) && i < wanted.length; ++i) {
            var kept = wanted[i] || []
            var from = shown().findIndex(function (column) { return column.movable && column.name === kept[0] })
            if (from < next)
                continue
            view.moveColumn(from, next)
            var column = view.getColumn(next++)
            if (column.resizable && kept[1] >= column.minimumWidth)
                column.width = Math.min(kept[1], 4000)
        }
    }

    // The base keeps its cells in a row item's second child, below the list's rows.
    function contentsWidth(column) {
        var list = view.__listView
        var width = list.headerItem.headerRepeater.itemAt(shown().indexOf(column)).implicitWidth
        for (var i = 0; i < list.contentItem.children.length; ++i) {
            var row = list.contentItem.children[i].rowItem
            var cells = row ? row.children[1].children : []
            for (var k = 0; k < cells.length; ++k)
                if (cells[k].__column === column && cells[k].item)
                    width = Math.max(width, cells[k].item.implicitWidth)
        }
        return Math.ceil(width)
    }
}
