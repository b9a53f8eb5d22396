import QtQuick 2.12
import QtQuick.Controls 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// What a task was when its editor opened, what the user made of it and what it is now; either of the last two is chosen
// field by field.
DialogPage {
    id: root

    title: qsTr("任务已被他人修改")

    UxText {
        Layout.fillWidth: true
        Layout.margins: 15
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        text: qsTr("%1。请逐项选择要保存的内容：").arg(conflictModel.summary)
    }
    ConflictRow {
        Layout.fillWidth: true
        Layout.fillHeight: false
        Layout.leftMargin: 15
        Layout.rightMargin: 15 + UxTheme.scrollBarWidth
        title: qsTr("内容")
        began: qsTr("打开时")
        own: qsTr("我的内容")
        present: qsTr("现在的内容")
    }
    ListView {
        id: list
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.leftMargin: 15
        Layout.rightMargin: 15
        Layout.bottomMargin: 10
        clip: true
        focus: true
        cacheBuffer: 10000  // every choice is reached by Tab
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: UxScrollBar {}
        model: conflictModel.fields.length  // a choice makes no row anew
        Accessible.role: Accessible.Table
        Accessible.name: root.title
        delegate: ConflictRow {
            readonly property var field: conflictModel.fields[index]

            width: list.width - UxTheme.scrollBarWidth
            isChoice: true
            title: field.title
            began: field.began
            own: field.own
            present: field.present
            isBoth: field.isBoth
            isOwn: field.isOwn
            onChosen: conflictModel.choose(index, isOwn)
        }
    }
    DialogButtons {
        Layout.fillWidth: true
        acceptText: qsTr("保存")
        onAccepted: conflictModel.onClickOk()
        onRejected: root.close()
    }
}
