import QtQuick 2.12
import QtQuick.Controls 1.4
import UI 1.0

// People in their departments; as wide as the names that are open.
UxTreeView2 {
    id: tree

    property real contentsWidth: 0

    signal searchCleared()

    function fit() {
        var column = getColumn(0)
        column.resizeToContents()
        contentsWidth = column.width
        column.width = Qt.binding(function () { return tree.columnWidth })
    }

    hasBorder: true
    indentation: 11
    backgroundColor: UxTheme.background
    columnWidth: Math.max(viewport.width, contentsWidth)
    selectionMode: SelectionMode.SingleSelection
    activeFocusOnTab: true
    Accessible.name: qsTr("组织人员")
    onExpanded: Qt.callLater(fit)

    UxPlaceholder {
        anchors.fill: parent
        anchors.margins: 1
        reading: theReading.state
        clearText: qsTr("清除搜索")
        onRetried: theReading.read()
        onCleared: tree.searchCleared()
    }
}
