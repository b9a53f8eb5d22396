import QtQuick.Controls 1.4

// A column of a table. Its name, the role or else the title, stands for it where widths and order are kept.
TableViewColumn {
    readonly property string name: role !== "" ? role : title
    readonly property int minimumWidth: 20

    // Answers a double click on the column's right border.
    function resizeToContents() {
        width = Math.max(minimumWidth, __view.layout.contentsWidth(this))
    }

    onWidthChanged: if (__view) __view.touchLayout()
}
