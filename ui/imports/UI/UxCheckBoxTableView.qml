import QtQuick 2.12
import QtQuick.Controls 1.4
import "."

// A table with a leading column of check boxes and a box in the header that checks all rows. Outside, columns count
// from 0 without the check-box column and as the program placed them: in insertColumnAt(), sortColumn and headerClicked().
UxTableView {
    id: control

    property bool checkBoxVisible: true
    property int checkboxColumnWidth: checkBoxVisible ? UxTheme.checkBoxColumnWidth : 0
    property string checkStateRole: "selected"
    property int sortColumn: -1
    property bool sortAscending: true
    cellBorderColor: UxTheme.cellBorder
    headerColor: UxTheme.tableHeader
    borderColor: UxTheme.border

    // Qt.Unchecked, Qt.PartiallyChecked or Qt.Checked over all rows.
    readonly property alias selectAllState: checkedRows.checkState
    readonly property alias checkedCount: checkedRows.checkedCount

    function insertColumnAt(position, column) {
        var inserted = insertColumn(position + 1, column)
        layout.define(position + 1, inserted)
        __placeFocus()
        return inserted
    }

    function setAllChecked(on) {
        checkedRows.checkAll(on)
    }

    // The numbers of the checked rows, from the top.
    function checkedRowNumbers() {
        var numbers = []
        for (var row = 0; row < rowCount; ++row)
            if (checkedRows.isChecked(row))
                numbers.push(row)
        return numbers
    }

    function tapHeader(number, title) {
        if (number > 0)
            headerClicked(number - 1, title)
    }

    function sortedAt(position) {
        return sortColumn >= 0 && layout.numberAt(position) === sortColumn + 1
    }

    sortedUp: sortAscending
    Keys.onSpacePressed: if (currentRow >= 0) checkedRows.check(currentRow, !checkedRows.isChecked(currentRow))

    UxCheckedRows {
        id: checkedRows
        model: control.model
        role: control.checkStateRole
    }

    TableViewColumn {
        visible: control.checkBoxVisible
        width: control.checkboxColumnWidth
        resizable: false
        movable: false
        delegate: UxCheckCell {
            readonly property var rowObject: model && model.item !== undefined ? model.item : model

            checkState: rowObject && rowObject[control.checkStateRole] === true ? Qt.Checked : Qt.Unchecked
            onToggled: checkedRows.check(styleData.row, checkState !== Qt.Checked)
        }
    }

    UxCheckCell {
        objectName: "selectAll"
        parent: control.__listView.headerItem
        z: 2
        visible: control.checkBoxVisible
        width: control.checkboxColumnWidth
        height: parent ? parent.height : 0
        enabled: checkedRows.count > 0
        checkState: checkedRows.checkState
        Accessible.name: qsTr("全选")
        onToggled: checkedRows.checkAll(checkState !== Qt.Checked)
    }
}
