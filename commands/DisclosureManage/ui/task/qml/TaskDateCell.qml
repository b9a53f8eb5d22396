import QtQuick 2.12
import UI 1.0

// A date of a task that can be changed in its cell until the task is published.
UxCellCalendar {
    readonly property var task: model && model.item ? model.item : null
    // The title of the column, which tells the dates apart.
    property string column

    value: task ? task[styleData.role] : ""
    editable: task !== null && !task.released && theTaskModel.operBtnEnable
    activeFocusOnTab: editable && styleData.selected
    onPicked: theTaskModel.onEditDate(text, column, task)
}
