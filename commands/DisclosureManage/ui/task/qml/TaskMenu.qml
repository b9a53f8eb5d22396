import QtQuick 2.12
import UI 1.0

// What can be done with a row of the task list, or with all checked rows where the row is one of them.
UxMenu {
    id: menu

    property var task: null
    property var rows: []
    property int amount: 1

    function openFor(table, row, x, y) {
        var checked = table.checkedRowNumbers()
        task = table.model.at(row)
        rows = task.selected ? checked : [row]
        amount = task.selected ? theTaskModel.checked_count : 1
        popup(table, x, y)
    }

    function counted(what) {
        return amount > 1 ? qsTr("%1选中的%2条").arg(what).arg(amount) : what
    }

    UxMenuItem {
        text: qsTr("编辑")
        enabled: theTaskModel.operBtnEnable
        onTriggered: theTaskModel.ModifyTask(menu.task)
    }
    UxMenuItem {
        text: qsTr("重命名")
        enabled: theTaskModel.operBtnEnable
        onTriggered: theTaskModel.onEditTaskName(menu.task)
    }
    UxMenuItem {
        text: qsTr("预览")
        onTriggered: theTaskModel.onClickPreviewTask(menu.task)
    }
    UxMenuItem {
        text: menu.counted(qsTr("移动"))
        enabled: theTaskModel.delBtnEnable
        onTriggered: theTaskModel.OnMoveTasks(menu.rows)
    }
    UxMenuItem {
        text: menu.counted(qsTr("导出"))
        enabled: theTaskModel.delBtnEnable
        onTriggered: theTaskModel.OnExportTasksToExcel(menu.rows)
    }
    UxMenuItem {
        text: menu.counted(qsTr("删除"))
        enabled: theTaskModel.delBtnEnable
        onTriggered: theTaskModel.OnDelTasks(menu.rows)
    }
}
