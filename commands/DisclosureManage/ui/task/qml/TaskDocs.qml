import QtQuick 2.12
import QtQuick.Controls 2.12
import UI 1.0

// The documents that a task is linked with, to be viewed and removed one by one.
Rectangle {
    id: box

    // Has connectdoclist and docnotes, and views and removes by number.
    property var documents

    color: UxTheme.background
    border.color: list.activeFocus ? UxTheme.fieldBorderFocused : UxTheme.treeBorder

    ListView {
        id: list
        anchors.fill: parent
        anchors.margins: 1
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: UxScrollBar {}
        model: box.documents.connectdoclist
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: qsTr("关联资料")
        onModelChanged: currentIndex = -1
        Keys.onDeletePressed: box.documents.onClickDelDocItem(currentIndex)
        Keys.onReturnPressed: box.documents.onClickViewDocItem(currentIndex)
        Keys.onEnterPressed: box.documents.onClickViewDocItem(currentIndex)
        delegate: LinkRow {
            width: list.width
            height: 30
            name: modelData
            note: box.documents.docnotes[index] || ""
            textColor: UxTheme.fieldText
            selected: ListView.isCurrentItem
            viewable: true
            Accessible.role: Accessible.ListItem
            onViewWanted: box.documents.onClickViewDocItem(index)
            onRemoveWanted: box.documents.onClickDelDocItem(index)

            MouseArea {
                anchors.fill: parent
                z: -1
                onClicked: {
                    list.currentIndex = index
                    list.forceActiveFocus()
                }
            }
        }
    }
    // A notch of the wheel is a tenth of what can be scrolled; what has nothing to scroll leaves the wheel to others.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        onWheel: {
            var range = list.contentHeight - list.height
            wheel.accepted = range > 0
            if (wheel.accepted)
                list.contentY = Math.max(0, Math.min(range, list.contentY - wheel.angleDelta.y / 1200 * range))
        }
    }
}
