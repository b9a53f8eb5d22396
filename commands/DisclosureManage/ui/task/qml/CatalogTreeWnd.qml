import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.12
import UI 1.0

// The chooser of the catalog that tasks are moved to.
DialogPage {
    id: root

    signal signalOKClicked()

    title: qsTr("选择路径")

    UxTreeView2 {
        id: tree
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.margins: 10
        focus: true
        activeFocusOnTab: true
        hasBorder: true
        selectionMode: SelectionMode.SingleSelection
        model: theModel
        Accessible.name: qsTr("交底目录")
        itemDelegate: CatalogRow { whiteWhenSelected: theModel.nodeOperEnable }
        onCurrentIndexChanged: theModel.currentIndex = currentIndex
        Keys.onReturnPressed: root.signalOKClicked()
        Keys.onEnterPressed: root.signalOKClicked()
        Component.onCompleted: select(theModel.defaultIndex)
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
