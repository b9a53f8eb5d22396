import QtQuick 2.12
import UI 1.0

// Who gives the briefing; changed in the cell until the task is published.
FocusScope {
    id: cell

    readonly property var task: model && model.item ? model.item : null
    // A cell that is disabled itself could not show a name that is cut.
    readonly property bool editable: task !== null && !task.released && theTaskModel.operBtnEnable
    property var table

    implicitWidth: label.implicitWidth + 20
    activeFocusOnTab: editable && styleData.selected
    onActiveFocusChanged: if (activeFocus && editable) chooser.active = true

    UxToolTipText {
        id: label
        anchors.fill: parent
        leftPadding: 8
        rightPadding: 6
        visible: chooser.status !== Loader.Ready
        text: cell.task ? cell.task.owner : ""
        color: cell.editable ? UxTheme.text : UxTheme.disabledText
    }
    // Made when the cell is first pointed at: a department's people make long lists, and there is one in each row.
    Loader {
        id: chooser
        anchors.fill: parent
        anchors.margins: 2
        active: false
        enabled: cell.editable
        focus: true
        sourceComponent: UxComboBox {
            id: box
            focus: true
            Keys.forwardTo: opener
            model: cell.task ? cell.task.ownermodel : []
            popupMaxHeight: 300
            Accessible.name: qsTr("交底人")

            // Ahead of the combo box, which takes an arrow or a letter for a choice while its list is closed.
            Item {
                id: opener
                Keys.onPressed: {
                    var typed = event.text >= " " && event.text !== "\x7f"
                    event.accepted = typed || [Qt.Key_Up, Qt.Key_Down, Qt.Key_Return, Qt.Key_Enter].indexOf(event.key) >= 0
                    if (event.accepted)
                        box.openList()
                }
            }
            onActivated: {
                theTaskModel.onEditOwner(textAt(index), cell.task)
                currentIndex = 0
            }
        }
    }
    // Above the chooser, so that the wheel scrolls the table and does not choose somebody else.
    MouseArea {
        anchors.fill: parent
        enabled: cell.editable
        acceptedButtons: Qt.NoButton
        hoverEnabled: true
        onEntered: chooser.active = true
        onWheel: cell.table.scrollTo(cell.table.scrolled() - wheel.angleDelta.y)
    }
}
