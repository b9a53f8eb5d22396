import QtQuick 2.12
import QtQuick.Controls 2.12
import QtQuick.Layouts 1.12
import QtQuick.Window 2.12
import UI 1.0

// The task editor. Escape does not close it: what was typed would be gone by a slip of the hand.
Rectangle {
    id: root

    property alias title: titleBar.title
    readonly property Item focusedItem: Window.activeFocusItem
    readonly property int captionSpace: 100

    signal close()
    signal toggleMaximized()
    signal titlebarPressed()
    signal titlebarPositionChanged()
    signal titlebarDbClick()

    color: UxTheme.background
    border.width: 1
    border.color: UxTheme.windowBorder
    onFocusedItemChanged: form.reveal(focusedItem)

    WindowTitleBar {
        id: titleBar
        x: 1
        y: 1
        width: parent.width - 2
        title: qsTr("交底任务")
        onClose: root.close()
        onToggleMaximized: root.toggleMaximized()
        onTitlebarPressed: root.titlebarPressed()
        onTitlebarPositionChanged: root.titlebarPositionChanged()
        onTitlebarDbClick: root.titlebarDbClick()
    }

    Flickable {
        id: form

        // Scrolls to what the keyboard has reached.
        function reveal(item) {
            var ancestor = item
            while (ancestor && ancestor !== fields)
                ancestor = ancestor.parent
            if (!ancestor)
                return
            var top = item.mapToItem(contentItem, 0, 0).y
            var shown = Math.min(item.height, height)
            if (top < contentY)
                contentY = Math.max(0, top - 10)
            else if (top + shown > contentY + height)
                contentY = Math.min(contentHeight - height, top + shown + 10 - height)
        }

        anchors.top: titleBar.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.leftMargin: 1
        anchors.rightMargin: 1
        anchors.bottomMargin: 9
        clip: true
        contentWidth: width
        contentHeight: Math.max(770, root.height - titleBar.height - 10)
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: UxScrollBar {}

        ColumnLayout {
            id: fields
            x: 30
            y: 20
            width: form.width - 60
            height: form.contentHeight - 20
            spacing: 12

            AddTaskPeople {
                Layout.fillWidth: true
                captionSpace: root.captionSpace
                spacing: 12
            }
            AddTaskDates {
                id: dates
                Layout.fillWidth: true
                captionSpace: root.captionSpace
                rowSpacing: 12
            }
            AddTaskBim {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.minimumHeight: 150
                captionSpace: root.captionSpace
            }
            AddTaskDocs {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.minimumHeight: 150
                captionSpace: root.captionSpace
            }
            Item {
                Layout.fillWidth: true
                Layout.preferredHeight: 100

                UxLabel {
                    height: UxTheme.fieldHeight
                    text: qsTr("备注：")
                }
                UxTextArea {
                    anchors.fill: parent
                    anchors.leftMargin: root.captionSpace
                    maxlength: 300
                    maxlengthEnable: true
                    text: addTaskModel.remark
                    Accessible.name: qsTr("备注")
                    onTextChanged: addTaskModel.remark = text
                }
            }
            Row {
                Layout.alignment: Qt.AlignHCenter
                spacing: 20

                UxButton {
                    text: qsTr("发布交底")
                    onClicked: if (dates.settled()) addTaskModel.onClickRelease()
                }
                UxButton {
                    text: qsTr("保存计划")
                    onClicked: if (dates.settled()) addTaskModel.onClickSave()
                }
                UxButton {
                    text: qsTr("取消")
                    focusPolicy: Qt.TabFocus  // what is given up need not be judged, as it is when its field is left
                    onClicked: root.close()
                }
            }
        }
    }
}
