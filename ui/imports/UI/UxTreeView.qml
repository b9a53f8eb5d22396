import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQml.Models 2.12
import "."

// A tree of one column over a tree model with the role "item"; a delegate reads styleData.value.<property>.
// Where the model offers expand(), collapse() and the signals expanded() and collapsed(), view and model tell each other
// what is open. currentIndex is the selection's, so that it never names a neighbour while rows come and go.
TreeView {
    id: control

    property bool initialExpandAll: true
    property bool hasBorder: true
    property color borderColor: UxTheme.treeBorder
    property bool expanderVisible: true
    // Rows deeper than this are not shown; the top rows have depth 0, and -1 is no limit.
    property int maxDepth: -1
    // Paints the whole row as selected; otherwise painting is left to the item delegate.
    property bool rowSelection: false
    property color backgroundColor: UxTheme.background
    property real columnWidth: viewport.width
    property int indentation: expanderVisible ? UxTheme.treeIndentation : UxTheme.treeIndentationWithoutExpander
    property int rowHeight: UxTheme.treeRowHeight
    // What the default delegate shows.
    property string textProperty: "nodeName"
    readonly property Item currentItem: __listView.currentItem
    readonly property var currentIndex: current.revision, selection.currentIndex

    // A press of the right button on a row.
    signal menuWanted(var index, real x, real y)

    function mayExpand(depth) {
        return maxDepth < 0 || depth < maxDepth
    }

    // Selects the row of a model index; an invalid index clears the selection.
    function select(index) {
        if (index && index.valid)
            selection.setCurrentIndex(index, ItemSelectionModel.ClearAndSelect)
        else
            selection.clearCurrentIndex()
    }

    // Opens the rows above the given depth and closes the others, and tells the model.
    function expandToDepth(depth) {
        sync.expandToDepth(depth)
    }

    alternatingRowColors: false
    headerVisible: false
    frameVisible: hasBorder
    horizontalScrollBarPolicy: columnWidth > viewport.width ? Qt.ScrollBarAsNeeded : Qt.ScrollBarAlwaysOff
    selection: ItemSelectionModel { model: control.model }
    style: UxTreeViewStyle {}
    Accessible.role: Accessible.Tree

    Keys.onPressed: keys.handle(event)
    Component.onCompleted: {
        // The base gives its list the focus before the list has its place, so the tree does not know where its focus lies.
        __listView.focus = false
        __listView.focus = true
        sync.start()
    }

    TableViewColumn {
        role: "item"
        resizable: false
        width: control.columnWidth
    }

    MouseArea {
        parent: control.viewport
        anchors.fill: parent
        acceptedButtons: Qt.RightButton
        onPressed: {
            var index = control.indexAt(mouse.x, mouse.y)
            if (index.valid)
                control.menuWanted(index, mouse.x, mouse.y)
        }
    }
    UxRowFrame { view: control }

    readonly property QtObject __sync: UxTreeSync {
        id: sync
        view: control
    }
    readonly property QtObject __current: UxTreeCurrent {
        id: current
        view: control
    }
    readonly property QtObject __keys: UxTreeKeys {
        id: keys
        view: control
    }
}
