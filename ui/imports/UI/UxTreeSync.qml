import QtQuick 2.12

// Keeps what a tree shows as open in step with its model.
QtObject {
    id: sync

    property var view
    property bool busy: false
    property bool started: false
    property bool laidOutAnew: false

    function start() {
        started = true
        attach()
    }

    function attach() {
        if (!started)
            return
        modelFollower.target = view.model || null
        expandAll(view.expand)
    }

    function quietly(action) {
        var outer = busy
        busy = true
        action()
        busy = outer
    }

    function depthOf(index) {
        var depth = 0
        for (var parent = index.parent; parent.valid; parent = parent.parent)
            ++depth
        return depth
    }

    // Calls visit(index, depth) for every row from first to last that has rows below it, and for those below it. Deepest
    // first: the view then shows a whole subtree in one step. Without recursion, since trees may be deep.
    function forParents(parent, depth, first, last, visit) {
        var levels = [{ index: parent, row: first, last: last }]
        while (levels.length > 0) {
            var level = levels[levels.length - 1]
            if (level.row <= level.last && view.mayExpand(depth + levels.length - 1)) {
                var index = view.model.index(level.row++, 0, level.index)
                var rows = view.model.rowCount(index)
                if (rows > 0)
                    levels.push({ index: index, row: 0, last: rows - 1 })
                continue
            }
            levels.pop()
            if (levels.length > 0)
                visit(level.index, depth + levels.length - 1)
        }
    }

    function forAllParents(visit) {
        if (view.model)
            forParents(view.rootIndex, 0, 0, view.model.rowCount(view.rootIndex) - 1, visit)
    }

    function expandUnlessClosed(index) {
        if (view.model.isExpanded === undefined || view.model.isExpanded(index))
            view.expand(index)
    }

    function expandAll(visit) {
        if (view.model && view.initialExpandAll)
            quietly(function () { forAllParents(visit) })
    }

    function expandAgain() {
        expandAll(expandUnlessClosed)
    }

    // Runs before the row mapping learns of the rows, which are therefore marked here and shown open by the mapping. A row
    // that gets its first rows is known to the mapping already and has to wait.
    function expandInserted(parent, first, last) {
        if (!view.initialExpandAll)
            return
        quietly(function () {
            forParents(parent, parent.valid ? depthOf(parent) + 1 : 0, first, last, expandUnlessClosed)
        })
        if (parent.valid && view.model.rowCount(parent) === last - first + 1)
            Qt.callLater(expandAgain)
    }

    function expandToDepth(limit) {
        forAllParents(function (index, depth) { depth < limit ? view.expand(index) : view.collapse(index) })
    }

    function report(index, open) {
        if (busy)
            return
        quietly(function () {
            if (open && !view.mayExpand(depthOf(index)))
                view.collapse(index)
            else if (view.model.expand !== undefined && view.model.collapse !== undefined)
                open ? view.model.expand(index) : view.model.collapse(index)
        })
    }

    function follow(index, open) {
        if (busy || view.isExpanded(index) === open || (open && !view.mayExpand(depthOf(index))))
            return
        quietly(function () { open ? view.expand(index) : view.collapse(index) })
    }

    // The row mapping announces no change of the number of rows when the model was laid out anew, so the list is told to
    // read everything again.
    function relay() {
        var list = view.__listView
        var top = list.contentY
        view.__model.layoutChanged()
        expandAgain()
        list.contentY = Math.max(list.originY, Math.min(top, list.originY + list.contentHeight - list.height))
        view.__current.show()
    }

    readonly property Connections viewFollower: Connections {
        target: sync.view
        function onExpanded(index) { sync.report(index, true) }
        function onCollapsed(index) { sync.report(index, false) }
    }
    readonly property Connections mappingFollower: Connections {
        target: sync.view ? sync.view.__model : null
        function onModelChanged() { sync.attach() }
        function onDataChanged() {
            if (!sync.laidOutAnew)
                return
            sync.laidOutAnew = false
            sync.relay()
        }
    }
    // These handlers run before the row mapping's own, which answers a new layout with dataChanged().
    readonly property Connections modelFollower: Connections {
        target: null
        ignoreUnknownSignals: true
        function onExpanded(index) { sync.follow(index, true) }
        function onCollapsed(index) { sync.follow(index, false) }
        function onLayoutChanged() { sync.laidOutAnew = true }
        function onModelReset() { Qt.callLater(sync.attach) }
        function onRowsInserted(parent, first, last) { sync.expandInserted(parent, first, last) }
    }
}
