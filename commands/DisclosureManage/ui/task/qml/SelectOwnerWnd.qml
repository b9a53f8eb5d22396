import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// The picker of the discloser.
DialogPage {
    id: root

    title: qsTr("选择交底人")

    TreeSearch {
        id: search
        Layout.fillWidth: true
        Layout.margins: 10
        focus: true
        placeholderText: qsTr("搜索联系人")
        onWanted: theSelectOwnerWnd.setSearchText(text)
    }
    PeopleTree {
        id: tree

        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 10
        Layout.rightMargin: 10
        Layout.bottomMargin: 10
        model: theSelectOwnerWnd.ownerDataModel
        itemDelegate: PeopleRow {
            highlighted: styleData.selected && !theSelectOwnerWnd.isDepNode(styleData.index)
        }
        onCurrentIndexChanged: model.currentIndex = currentIndex
        onActivated: if (!theSelectOwnerWnd.isDepNode(index)) theSelectOwnerWnd.onClickOk()
        onSearchCleared: search.forget()

        Connections {
            target: tree.model
            function onCurrentIndexChanged() {
                if (tree.currentIndex !== tree.model.currentIndex)
                    tree.select(tree.model.currentIndex)
            }
        }
    }
    DialogButtons {
        Layout.fillWidth: true
        onAccepted: theSelectOwnerWnd.onClickOk()
        onRejected: root.close()
    }
}
