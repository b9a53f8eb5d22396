import QtQuick 2.12

// The keys of a tree beyond those that the base view knows.
QtObject {
    property var view

    function showRow(row) {
        if (row >= 0 && row < view.__listView.count)
            view.select(view.__model.mapRowToModelIndex(row))
    }

    function open(index) {
        if (!view.isExpanded(index))
            view.expand(index)
        else if (view.model.rowCount(index) > 0)
            view.select(view.model.index(0, 0, index))
    }

    function close(index) {
        if (view.isExpanded(index))
            view.collapse(index)
        else if (index.parent.valid)
            view.select(index.parent)
    }

    function handle(event) {
        var index = view.currentIndex
        var current = index && index.valid
        event.accepted = true
        if (event.key === Qt.Key_Home)
            showRow(0)
        else if (event.key === Qt.Key_End)
            showRow(view.__listView.count - 1)
        else if (event.key === Qt.Key_Left && current)
            close(index)
        else if (event.key === Qt.Key_Right && current)
            open(index)
        else if (event.key === Qt.Key_Enter && current)
            view.activated(index)
        else
            event.accepted = false
    }
}
