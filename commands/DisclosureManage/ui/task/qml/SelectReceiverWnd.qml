import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// The picker of the receivers.
DialogPage {
    id: root

    function toggle(index) {
        var node = index && index.valid ? tree.model.data(index, Qt.DisplayRole) : null
        if (!node)
            return
        node.checkState = node.checkState === Qt.Checked ? Qt.Unchecked : Qt.Checked
        theSelectReceiverWnd.onItemCheckStatusChanged(index)
    }

    title: qsTr("选择接受交底人")

    Item {
        Layout.fillWidth: true
        Layout.preferredHeight: 85

        UxLabel {
            id: count
            x: 10
            height: 22
            text: qsTr("已选择（人）：") + theSelectReceiverWnd.selcount
        }
        PeopleChips {
            anchors.fill: parent
            anchors.topMargin: count.height
            anchors.leftMargin: 10
            anchors.rightMargin: 10
            names: theSelectReceiverWnd.receiverName
            onRemoveWanted: theSelectReceiverWnd.onClickDelReceiver(index)
        }
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.preferredHeight: 30
        Layout.margins: 10
        spacing: 4

        TreeSearch {
            id: search
            Layout.fillWidth: true
            focus: true
            placeholderText: qsTr("搜索联系人")
            onWanted: theSelectReceiverWnd.setSearchText(text)
        }
        UxIconButton {
            implicitWidth: 30
            implicitHeight: 30
            iconSource: "qrc:/ui/Images/TreeExpand.png"
            tooltipText: qsTr("展开一级")
            onClicked: theSelectReceiverWnd.onClickExpand()
        }
        UxIconButton {
            implicitWidth: 30
            implicitHeight: 30
            iconSource: "qrc:/ui/Images/TreeCollpase.png"
            tooltipText: qsTr("收起一级")
            onClicked: theSelectReceiverWnd.onClickCollapse()
        }
    }
    PeopleTree {
        id: tree
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 10
        Layout.rightMargin: 10
        Layout.bottomMargin: 10
        model: theSelectReceiverWnd.receiverDataModel
        itemDelegate: PeopleRow {
            checkable: true
            onToggled: root.toggle(styleData.index)
        }
        Keys.onSpacePressed: root.toggle(currentIndex)
        onSearchCleared: search.forget()
    }
    DialogButtons {
        Layout.fillWidth: true
        onAccepted: theSelectReceiverWnd.onClickOk()
        onRejected: root.close()
    }
}
