import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// The chooser of the catalog that tasks are moved to.
DialogPage {
    id: root

    signal signalOKClicked()

    // Of many catalogs only the top is open.
    function showChoices() {
        if (theWnd.opensAll())
            tree.expandToDepth(1000)
        else
            tree.expand(theModel.defaultIndex)
        tree.select(theModel.defaultIndex)
    }

    title: qsTr("选择路径")

    UxText {
        Layout.fillWidth: true
        Layout.margins: 10
        Layout.bottomMargin: 0
        visible: text !== ""
        text: movedTasks
        wrapMode: Text.Wrap
    }
    TreeSearch {
        id: search
        Layout.fillWidth: true
        Layout.margins: 10
        Layout.bottomMargin: 0
        placeholderText: qsTr("搜索目录")
        onWanted: theWnd.setSearchText(text)
        Keys.onDownPressed: tree.forceActiveFocus()
    }
    UxTreeView2 {
        id: tree
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.margins: 10
        focus: true
        initialExpandAll: false
        activeFocusOnTab: true
        hasBorder: true
        selectionMode: SelectionMode.SingleSelection
        model: theModel
        Accessible.name: qsTr("交底目录")
        itemDelegate: CatalogRow { whiteWhenSelected: theModel.nodeOperEnable }
        onCurrentIndexChanged: theModel.currentIndex = currentIndex
        Keys.onReturnPressed: root.signalOKClicked()
        Keys.onEnterPressed: root.signalOKClicked()

        UxPlaceholder {
            anchors.fill: parent
            anchors.margins: 1
            reading: theModel.reading
            clearText: qsTr("清除搜索")
            onRetried: theWnd.read()
            onCleared: search.forget()
        }
    }
    Connections {
        target: theModel
        function onDefaultIndexChanged() { root.showChoices() }
    }

    RowLayout {
        Layout.fillWidth: true
        Layout.preferredHeight: 30
        Layout.bottomMargin: 10

        UxButton {
            Layout.preferredWidth: 80
            Layout.leftMargin: 20
            text: qsTr("确定")
            onClicked: root.signalOKClicked()
        }
        Item { Layout.fillWidth: true }
        UxButton {
            Layout.preferredWidth: 80
            Layout.rightMargin: 20
            text: qsTr("取消")
            onClicked: root.close()
        }
    }
}
