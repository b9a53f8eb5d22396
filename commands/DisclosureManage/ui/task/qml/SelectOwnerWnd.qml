import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// The picker of the discloser.
DialogPage {
    id: root

    title: qsTr("选择交底人")

    PeopleSearch {
        Layout.fillWidth: true
        Layout.margins: 10
        focus: true
        onWanted: theSelectOwnerWnd.setSearchText(text)
    }
    PeopleTree {
        id: tree

        property bool shown: false  // until then the selection is the model's

        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 10
        Layout.rightMargin: 10
        Layout.bottomMargin: 10
        model: theSelectOwnerWnd.ownerDataModel
        itemDelegate: PeopleRow {
            highlighted: styleData.selected && !theSelectOwnerWnd.isDepNode(styleData.index)
        }
        onCurrentIndexChanged: if (shown) model.currentIndex = currentIndex
        onActivated: if (!theSelectOwnerWnd.isDepNode(index)) theSelectOwnerWnd.onClickOk()
        Component.onCompleted: {
            select(model.currentIndex)
            shown = true
        }
    }
    DialogButtons {
        Layout.fillWidth: true
        onAccepted: theSelectOwnerWnd.onClickOk()
        onRejected: root.close()
    }
}
