import QtQuick 2.12
import QtQuick.Controls 2.12
import QtQuick.Layouts 1.12
import QtQuick.Window 2.12
import UI 1.0
import "../../qml"

// The task editor: the form, which scrolls, above the buttons, which are always in sight.
DialogPage {
    id: root

    readonly property Item focusedItem: Window.activeFocusItem
    readonly property int captionSpace: 100
    // A date is being typed, which the task does not have yet.
    readonly property bool typing: dates.typing

    title: qsTr("交底任务")
    hasMaxButton: true
    onFocusedItemChanged: form.reveal(focusedItem)

    Connections {
        target: addTaskModel
        // The keyboard goes where the task has to be mended, and the form follows it.
        function onFieldRefused(field) {
            var places = {
                "taskName": people.nameField, "disName": people.ownerButton, "receiveName": people.receiverButton,
                "constEndDate": dates.endField, "endDate": dates.deadlineField, "connectdoclist": docs.uploadButton
            }
            if (places[field])
                places[field].forceActiveFocus(Qt.TabFocusReason)
        }
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
                scrollTo(top - 10)
            else if (top + shown > contentY + height)
                scrollTo(top + shown + 10 - height)
        }
        function scrollTo(y) { contentY = Math.max(0, Math.min(y, contentHeight - height)) }

        Layout.fillWidth: true
        Layout.fillHeight: true
        clip: true
        contentWidth: width
        contentHeight: Math.max(770, height)
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: UxScrollBar {}

        ColumnLayout {
            id: fields
            x: 30
            y: 20
            width: form.width - 60
            height: form.contentHeight - 40
            spacing: 12

            AddTaskPeople {
                id: people
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
                form: form
            }
            AddTaskDocs {
                id: docs
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.minimumHeight: 150
                captionSpace: root.captionSpace
            }
            AddTaskRemark {
                Layout.fillWidth: true
                Layout.preferredHeight: 100
                captionSpace: root.captionSpace
                form: form
            }
        }
    }
    Rectangle {
        Layout.fillWidth: true
        Layout.preferredHeight: 1
        color: UxTheme.windowBorder
    }
    // Publishing cannot be taken back and stands apart.
    RowLayout {
        Layout.fillWidth: true
        Layout.leftMargin: 30
        Layout.rightMargin: 30
        Layout.topMargin: 9
        Layout.bottomMargin: 9
        spacing: 20

        UxButton {
            text: qsTr("发布交底")
            onClicked: if (dates.settled()) addTaskModel.onClickRelease()
        }
        Item { Layout.fillWidth: true }
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
