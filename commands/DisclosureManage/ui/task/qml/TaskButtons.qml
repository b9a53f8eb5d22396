import QtQuick 2.12
import UI 1.0

// The buttons that create tasks, and delete, move and export the checked ones.
Row {
    id: buttons

    property var table
    // Rows are checked and the user may delete, move and export them.
    readonly property bool rowsUsable: theTaskModel.checked_count > 0 && theTaskModel.delBtnEnable

    UxIconButton {
        implicitHeight: UxTheme.fieldHeight
        iconSource: "qrc:/ui/Images/add.png"
        tooltipText: qsTr("新建")
        enabled: theTaskModel.newTaskEnable && !theTaskModel.reading.unread
        onClicked: theTaskModel.AddTask()
    }
    UxIconButton {
        implicitHeight: UxTheme.fieldHeight
        iconSource: "qrc:/ui/Images/del.png"
        tooltipText: qsTr("删除")
        enabled: buttons.rowsUsable
        onClicked: theTaskModel.OnDelTasks(buttons.table.checkedRowNumbers())
    }
    UxIconButton {
        implicitHeight: UxTheme.fieldHeight
        iconSource: "qrc:/ui/Images/moveto.png"
        tooltipText: qsTr("移动")
        enabled: buttons.rowsUsable
        onClicked: theTaskModel.OnMoveTasks(buttons.table.checkedRowNumbers())
    }
    UxIconButton {
        implicitHeight: UxTheme.fieldHeight
        iconSource: "qrc:/ui/Images/export.png"
        tooltipText: qsTr("导出")
        enabled: buttons.rowsUsable
        onClicked: theTaskModel.OnExportTasksToExcel(buttons.table.checkedRowNumbers())
    }
    UxIconButton {
        implicitHeight: UxTheme.fieldHeight
        iconSource: "qrc:/ui/Images/refresh.png"
        tooltipText: qsTr("刷新")
        onClicked: theWindow.refresh()
    }
}
