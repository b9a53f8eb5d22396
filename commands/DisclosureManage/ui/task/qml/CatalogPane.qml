import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.12
import UI 1.0
import "CatalogOptions.js" as CatalogOptions

// The catalog tree with the buttons under it, its context menu and its keys.
FocusScope {
    id: pane

    signal optionChosen(int option)
    signal nameWanted(int option)
    signal menuClosed()

    function create() { nameWanted(CatalogOptions.create) }
    function rename() { nameWanted(CatalogOptions.rename) }
    function remove() { optionChosen(CatalogOptions.remove) }
    function moveUp() { optionChosen(CatalogOptions.moveUp) }
    function moveDown() { optionChosen(CatalogOptions.moveDown) }

    // The ids of the open catalogs below, from the top down.
    function openBelow(parent, ids) {
        for (var row = 0; row < theModel.rowCount(parent); ++row) {
            var index = theModel.index(row, 0, parent)
            if (!tree.isExpanded(index))
                continue
            ids.push(theModel.catalogId(index))
            openBelow(index, ids)
        }
        return ids
    }

    function openMenu(item, x, y) {
        menu.wanted({ pane: pane }, function (made) { made.closed.connect(menuClosed) }).popup(item, x, y)
    }

    // The top catalog is open from the start: alone it would tell nothing.
    function showDefault() {
        tree.expand(theModel.defaultIndex)
        tree.select(theModel.defaultIndex)
    }

    Keys.onMenuPressed: openMenu(tree.currentItem || tree, tree.indentation, tree.rowHeight)
    Keys.onPressed: {
        var action = event.key === Qt.Key_Insert && theModel.newBuildEnable ? create
                   : !theModel.nodeOperEnable ? null
                   : event.key === Qt.Key_F2 ? rename
                   : event.key === Qt.Key_Delete ? remove : null
        event.accepted = action !== null
        if (action)
            action()
    }

    Rectangle {
        anchors.fill: parent
        color: UxTheme.background
        border.width: 1
        border.color: UxTheme.windowBorder

        ColumnLayout {
            anchors.fill: parent
            spacing: 0

            UxNoticeBar {
                Layout.fillWidth: true
                Layout.margins: 1
                visible: theModel.reading.failed && !theModel.reading.covers
                text: theModel.reading.text
                actionText: qsTr("重试")
                onActed: theWindow.refresh()
            }
            UxTreeView2 {
                id: tree
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.margins: 1
                focus: true
                activeFocusOnTab: true
                hasBorder: false
                backgroundColor: UxTheme.background
                initialExpandAll: false
                indentation: 11
                selectionMode: SelectionMode.SingleSelection
                model: theModel
                Accessible.name: qsTr("交底目录")
                itemDelegate: CatalogRow {}
                onMenuWanted: {
                    select(index)
                    pane.openMenu(tree, x, y)
                }
                onCurrentIndexChanged: theModel.currentIndex = currentIndex
                Component.onCompleted: {
                    if (theModel.defaultIndex.valid)
                        pane.showDefault()
                }

                UxPlaceholder {
                    anchors.fill: parent
                    reading: theModel.reading
                    onRetried: theWindow.refresh()
                }
            }

            CatalogButtons {
                Layout.fillWidth: true
                enabled: !theModel.reading.covers
                pane: pane
            }
        }
    }

    UxOnDemand {
        id: menu
        file: Qt.resolvedUrl("CatalogMenu.qml")
    }

    // Another reading of the catalogs leaves open what was open, and the place.
    Connections {
        property var open: []
        property real top: 0

        target: theModel
        function onReplacingCatalogs() {
            open = pane.openBelow(tree.rootIndex, [])
            top = tree.flickableItem.contentY
        }
        function onCatalogsReplaced() {
            for (var i = 0; i < open.length; ++i)
                tree.expand(theModel.indexOfCatalog(open[i]))
            if (open.length > 0)
                Qt.callLater(function () { tree.flickableItem.contentY = top })
        }
        function onDefaultIndexChanged() {
            if (!theModel.currentIndex.valid)
                pane.showDefault()
        }
        function onCurrentIndexChanged() {
            if (tree.currentIndex !== theModel.currentIndex)
                tree.select(theModel.currentIndex)
        }
    }
}
