import QtQuick 2.12
import QtQml 2.12

// Counts the checked rows of a list model, following each row's own changes, and checks them.
Instantiator {
    id: rows

    property string role: "selected"
    property int checkedCount: 0
    // Counted here: where a model of as many rows takes the place of another, the base does not tell that its count was
    // smaller in between.
    property int rowCount: 0
    readonly property int checkState: checkedCount === 0 ? Qt.Unchecked
                                                         : checkedCount < rowCount ? Qt.PartiallyChecked : Qt.Checked

    function check(row, on) {
        var entry = objectAt(row)
        if (entry)
            entry.check(on)
    }

    function checkAll(on) {
        for (var row = 0; row < count; ++row)
            check(row, on)
    }

    function isChecked(row) {
        var entry = objectAt(row)
        return entry !== null && entry.checked
    }

    delegate: QtObject {
        // The row's object where the model has the role "item", else the row itself.
        readonly property var row: model.item !== undefined ? model.item : model
        readonly property bool checked: row ? row[rows.role] === true : false
        property bool counted: false

        function check(on) {
            if (row)
                row[rows.role] = on
        }

        function count(on) {
            if (on !== counted)
                rows.checkedCount += on ? 1 : -1
            counted = on
        }

        onCheckedChanged: count(checked)
        Component.onCompleted: count(checked)
    }
    onObjectAdded: ++rowCount
    onObjectRemoved: {
        --rowCount
        object.count(false)
    }
}
