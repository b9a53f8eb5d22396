import QtQuick 2.12
import UI 1.0

// How far a briefing has come.
UxToolTipText {
    readonly property var task: model && model.item ? model.item : null

    text: task ? task.status : ""
    horizontalAlignment: Text.AlignHCenter
    color: text === qsTranslate("TaskModel", "交底中") ? UxTheme.runningStatus
         : text === qsTranslate("TaskModel", "已交底") ? UxTheme.doneStatus : UxTheme.openStatus
}
