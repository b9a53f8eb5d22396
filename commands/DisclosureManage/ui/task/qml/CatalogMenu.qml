import QtQuick 2.12
import UI 1.0

// The context menu of the catalog tree.
UxMenu {
    id: menu

    property var pane

    UxMenuItem {
        text: qsTr("新建")
        // Nothing publishes "theMode": the item is always enabled, and the service decides.
        enabled: typeof theMode === "undefined" || theMode.nodeOperEnable
        onTriggered: menu.pane.create()
    }
    UxMenuItem {
        text: qsTr("重命名")
        enabled: theModel.nodeOperEnable
        onTriggered: menu.pane.rename()
    }
    UxMenuItem {
        text: qsTr("删除")
        enabled: theModel.nodeOperEnable
        onTriggered: menu.pane.remove()
    }
    UxMenuItem {
        text: qsTr("上移")
        enabled: theModel.nodeOperEnable
        onTriggered: menu.pane.moveUp()
    }
    UxMenuItem {
        text: qsTr("下移")
        enabled: theModel.nodeOperEnable
        onTriggered: menu.pane.moveDown()
    }
}
