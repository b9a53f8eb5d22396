import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.12
import UI 1.0

// The folders of the document store, under the field that searches them.
ColumnLayout {
    id: pane

    // Of many folders only the way to the selected one is open.
    function showFolders() {
        if (connectDocMode.folderTreeModel.opensAll())
            tree.expandToDepth(1000)
        else
            for (var index = connectDocMode.defaultIndex; index.valid; index = index.parent)
                tree.expand(index)
        choose(connectDocMode.defaultIndex)
    }

    function choose(index) {
        tree.select(index)
        connectDocMode.curTreeIndex = index
    }

    spacing: 10

    KeyField {
        Layout.fillWidth: true
        placeholderText: qsTr("请输入目录关键字")
        key: connectDocMode.searchTreeKey
        onKeyTyped: connectDocMode.searchTreeKey = typed
        onWanted: connectDocMode.onSearchTree()
        Keys.onDownPressed: tree.forceActiveFocus()
    }
    UxTreeView {
        id: tree
        Layout.fillWidth: true
        Layout.fillHeight: true
        focus: true
        activeFocusOnTab: true
        initialExpandAll: false
        indentation: 20
        selectionMode: SelectionMode.SingleSelection
        model: connectDocMode.folderTreeModel
        Accessible.name: qsTr("资料目录")
        itemDelegate: FolderRow {}
        onCurrentIndexChanged: connectDocMode.curTreeIndex = currentIndex
        Component.onCompleted: pane.choose(connectDocMode.defaultIndex)

        UxPlaceholder {
            anchors.fill: parent
            anchors.margins: 1
            reading: connectDocMode.folderReading
            clearText: qsTr("清除搜索")
            onRetried: connectDocMode.read()
            onCleared: {
                connectDocMode.searchTreeKey = ""
                connectDocMode.onSearchTree()
            }
        }
    }
    Connections {
        target: connectDocMode
        function onDefaultIndexChanged() { pane.showFolders() }
    }
}
