import QtQuick 2.12
import UI 1.0

// A department, or a person with the login name behind the display name.
Item {
    id: row

    readonly property var node: styleData.value || null
    property bool checkable: false
    property bool highlighted: false

    signal toggled()

    implicitWidth: label.x + label.implicitWidth + 8
    Accessible.role: Accessible.TreeItem
    Accessible.name: label.text
    Accessible.selectable: true
    Accessible.selected: highlighted

    RowHighlight { shown: row.highlighted }
    UxCheckCell {
        id: box
        visible: row.checkable
        width: visible ? 22 : 0
        height: parent.height
        checkState: row.node && row.checkable ? row.node.checkState : Qt.Unchecked
        Accessible.name: label.text
        onToggled: row.toggled()
    }
    UxToolTipText {
        id: label
        anchors.left: box.right
        anchors.leftMargin: 4
        anchors.right: parent.right
        height: parent.height
        text: !row.node ? "" : row.node.realName === "" ? row.node.nodeName
                                                        : row.node.realName + "(" + row.node.nodeName + ")"
        color: row.highlighted ? UxTheme.selectedText : UxTheme.text
    }
}
