import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// One field of a task in two versions, or the heads of these columns.
RowLayout {
    id: row

    property string title
    property string began
    property string own
    property string present
    property bool isChoice: false
    property bool isBoth: false
    property bool isOwn: false

    signal chosen(bool isOwn)

    spacing: 0

    ConflictCell {
        Layout.preferredWidth: 3
        text: row.isBoth ? qsTr("%1（双方都改了）").arg(row.title) : row.title
        isHead: true
    }
    ConflictCell {
        Layout.preferredWidth: 4
        text: row.began
        isHead: !row.isChoice
    }
    ConflictCell {
        Layout.preferredWidth: 4
        text: row.own
        isHead: !row.isChoice
        isChoice: row.isChoice
        chosen: row.isOwn
        Accessible.description: qsTr("我的内容")
        onPicked: row.chosen(true)
    }
    ConflictCell {
        Layout.preferredWidth: 4
        text: row.present
        isHead: !row.isChoice
        isChoice: row.isChoice
        chosen: !row.isOwn
        Accessible.description: qsTr("现在的内容")
        onPicked: row.chosen(false)
    }
}
