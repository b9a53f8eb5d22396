import QtQuick 2.12
import UI 1.0

// The commands and filters of the task list; what does not fit goes to the next line.
Flow {
    id: bar

    property var table
    readonly property alias rowsUsable: buttons.rowsUsable

    spacing: 10

    TaskButtons {
        id: buttons
        table: bar.table
    }
    TaskFilter {}
    Row {
        spacing: 8

        TaskSearchField { id: search }
        UxButton {
            width: 60
            height: search.height
            text: qsTr("提醒")
            onClicked: theTaskModel.onClickRemind()
        }
    }
}
