import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.12
import UI 1.0

// The viewports and rebar nodes that the task is linked with.
Item {
    property real captionSpace: 0
    property alias form: overflow.form

    function iconOf(node) {
        return node.nodeType === 1 ? "qrc:/ui/Images/viewport.png"
             : node.nodeType === 2 ? "qrc:/ui/Images/rebar.png"
             : node.projType >= 0 ? "qrc:/ui/Images/project/" + (node.projType + 2) + ".png"
                                  : "qrc:/ui/Images/folder.png"
    }

    UxLabel {
        height: UxTheme.fieldHeight
        text: qsTr("关联BIM：")
    }
    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: captionSpace

        LaterButton { text: qsTr("关联模型") }
        UxTreeView {
            id: tree
            Layout.fillWidth: true
            Layout.fillHeight: true
            indentation: 16
            selectionMode: SelectionMode.SingleSelection
            activeFocusOnTab: true
            model: addTaskModel.bimDataModel
            Accessible.name: qsTr("关联BIM")
            itemDelegate: LinkRow {
                readonly property var node: styleData.value || null

                name: node ? node.nodeName : ""
                iconSource: node ? iconOf(node) : ""
                selectable: node !== null && node.canSelect
                selected: styleData.selected
                Accessible.role: Accessible.TreeItem
                onRemoveWanted: addTaskModel.onClickDelBIMItem(node)
            }
            WheelPass {
                id: overflow
                content: tree.flickableItem
            }
            Keys.onDeletePressed: {
                if (currentIndex.valid)
                    addTaskModel.onClickDelBIMItem(model.data(currentIndex, Qt.DisplayRole))
            }
        }
    }
}
