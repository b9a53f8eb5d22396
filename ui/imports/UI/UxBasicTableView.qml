import QtQuick 2.12
import QtQuick.Controls.Private 1.0
import "."

// What every table has: columns, header, scrolling and cells with border lines. The base is the scroll view with columns
// that the stock table and tree share; its stock table cannot be the base, since its signals differ from ours.
BasicTableView {
    id: control

    property color cellBorderColor: UxTheme.cellBorder
    property color headerColor: UxTheme.tableHeader
    property color borderColor: UxTheme.border
    property int rowHeight: UxTheme.tableRowHeight
    readonly property alias layout: columns

    // Columns were resized or dragged.
    signal layoutTouched()

    function touchLayout() {
        layoutTouched()
    }

    // Whether the arrow stands in this column of the header, and where it points.
    function sortedAt(position) {
        return sortIndicatorVisible && position === sortIndicatorColumn
    }
    property bool sortedUp: sortIndicatorOrder === Qt.AscendingOrder

    alternatingRowColors: true
    headerVisible: true
    sortIndicatorVisible: false
    style: UxBasicTableViewStyle {}
    Accessible.role: Accessible.Table

    // The base gives its list the focus before the list has its place, and takes the list's branch out and in again for
    // every inserted column: the table does not know where its focus lies.
    function __placeFocus() {
        __listView.focus = false
        __listView.focus = true
    }

    Component.onCompleted: {
        columns.defined = columns.shown()
        __placeFocus()
    }

    // One arrow, in the header of the column that is sorted by.
    Image {
        readonly property Item header: {
            var headers = control.__listView.headerItem ? control.__listView.headerItem.headerRow.children : []
            for (var i = 0; i < headers.length; ++i)
                if (headers[i].column !== undefined && control.sortedAt(headers[i].column))
                    return headers[i]
            return null
        }

        parent: header
        anchors.right: parent ? parent.right : undefined
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        visible: header !== null
        width: UxTheme.smallIconSize
        height: UxTheme.smallIconSize
        source: header === null ? "" : control.sortedUp ? "qrc:/ui/Images/sort/ascending.png"
                                                        : "qrc:/ui/Images/sort/descending.png"
    }

    readonly property QtObject __columnLayout: UxColumnLayout {
        id: columns
        view: control
    }

    __itemDelegateLoader: TableViewItemDelegateLoader {
        __style: control.__style
        __itemDelegate: control.itemDelegate
        __mouseArea: control.__mouseArea

        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            z: 1
            color: control.cellBorderColor
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            z: 1
            color: control.cellBorderColor
        }
    }
}
