import QtQuick 2.12
import QtQuick.Controls 2.12
import UI 1.0
import "CatalogOptions.js" as CatalogOptions

// Asks for a folder's name. "确定" leaves it open with what was typed when the name is refused.
Popup {
    id: popup

    property int option: CatalogOptions.create
    readonly property bool creates: option === CatalogOptions.create
    property string failure: ""
    property real pressX
    property real pressY

    signal proposalWanted()
    signal nameGiven(int option, string name)

    function openFor(wanted) {
        option = wanted
        failure = ""
        open()
    }

    // What got no answer can be tried again: it stays, with the reason.
    function give(closesInAnyCase) {
        nameGiven(option, nameField.text)
        failure = theModel.failure
        if (theModel.is_duplicate_name || (closesInAnyCase && failure === ""))
            close()
    }

    parent: Overlay.overlay
    width: 310
    height: 190
    padding: 0
    modal: true
    focus: true
    closePolicy: Popup.CloseOnEscape
    background: Rectangle {
        radius: 2
        color: UxTheme.background
        border.color: UxTheme.windowBorder
    }
    onAboutToShow: {
        x = Math.round((parent.width - width) / 2)
        y = Math.round((parent.height - height) / 2)
        if (creates)
            proposalWanted()
        var node = theModel.GetCurrentNode()
        nameField.text = creates ? newFileName : node ? node.nodeName : ""
        nameField.selectAll()
    }
    onOpened: nameField.forceActiveFocus()

    WindowTitleBar {
        id: titleBar
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 1
        y: 1
        title: popup.creates ? qsTr("文件夹新建") : qsTr("文件夹重命名")
        hasMaxButton: false
        onClose: popup.close()
        onTitlebarPressed: {
            popup.pressX = mouseX
            popup.pressY = mouseY
        }
        // Moving stops where the title bar would leave the window.
        onTitlebarPositionChanged: {
            popup.x = Math.max(0, Math.min(popup.parent.width - popup.width, popup.x + mouseX - popup.pressX))
            popup.y = Math.max(0, Math.min(popup.parent.height - height, popup.y + mouseY - popup.pressY))
        }
    }

    Row {
        id: nameRow
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: parent.verticalCenter

        UxLabel {
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("文件夹名: ")
        }
        UxTextField {
            id: nameField
            focus: true
            KeyNavigation.tab: okButton
            Accessible.name: qsTr("文件夹名")
            onAccepted: popup.give(true)
        }
    }

    UxText {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: nameRow.bottom
        anchors.topMargin: 6
        width: parent.width - 20
        visible: text !== ""
        text: popup.failure === "" ? "" : qsTr("未完成：") + popup.failure
        color: UxTheme.requiredMark
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        spacing: 90

        UxButton {
            id: okButton
            text: qsTr("确定")
            KeyNavigation.tab: cancelButton
            onClicked: popup.give(false)
        }
        UxButton {
            id: cancelButton
            text: qsTr("取消")
            KeyNavigation.tab: nameField
            onClicked: popup.close()
        }
    }
}
