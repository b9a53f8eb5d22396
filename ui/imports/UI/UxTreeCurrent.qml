import QtQuick 2.12

// Keeps a tree's current row, which is a row number, at the selected index while rows come and go.
QtObject {
    id: current

    property var view
    // Grows whenever the selected index may have another row number.
    property int revision: 0

    // A selection that would vanish inside a closed row moves to that row.
    function lift(closed) {
        for (var index = view.selection.currentIndex; index.valid; index = index.parent)
            if (index.parent === closed)
                return view.select(closed)
    }

    // True when another row became the current one.
    function show() {
        ++revision
        var index = view.selection.currentIndex
        var list = view.__listView
        if (view.__model.mapRowToModelIndex(list.currentIndex) === index)
            return false
        for (var row = 0; index.valid && row < list.count; ++row)
            if (view.__model.mapRowToModelIndex(row) === index) {
                list.currentIndex = row
                return true
            }
        list.currentIndex = -1
        return false
    }

    // A row that the base view did not choose itself comes into view.
    function follow() {
        if (show())
            view.__listView.positionViewAtIndex(view.__listView.currentIndex, ListView.Contain)
    }

    readonly property Connections viewFollower: Connections {
        target: current.view
        function onCollapsed(index) { current.lift(index) }
    }
    readonly property Connections selectionFollower: Connections {
        target: current.view ? current.view.selection : null
        function onCurrentChanged() { Qt.callLater(current.follow) }
    }
    readonly property Connections modelFollower: Connections {
        target: current.view ? current.view.model : null
        ignoreUnknownSignals: true
        function onRowsInserted() { Qt.callLater(current.show) }
        function onRowsRemoved() { Qt.callLater(current.show) }
        function onRowsMoved() { Qt.callLater(current.show) }
    }
}
