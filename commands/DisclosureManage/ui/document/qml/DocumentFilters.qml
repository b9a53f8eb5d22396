import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// What the listed documents have in common: name, updater, type, tag, and below it the range of compiled time.
ColumnLayout {
    spacing: 5

    RowLayout {
        Layout.fillWidth: true
        Layout.preferredHeight: 35
        spacing: 10

        KeyField {
            Layout.preferredWidth: 190
            placeholderText: qsTr("请输入资料名称关键字")
            key: connectDocMode.searchDocKey
            onKeyTyped: connectDocMode.searchDocKey = typed
            onWanted: connectDocMode.onSearchDoc()
        }
        DocumentFilter {
            Layout.preferredWidth: 150
            caption: qsTr("更新人:")
            choices: connectDocMode.userCombo
            selection: connectDocMode.currentUserSelection
            onChosen: connectDocMode.currentUserSelection = choice
        }
        DocumentFilter {
            Layout.preferredWidth: 150
            caption: qsTr("文件类型:")
            choices: connectDocMode.filetypeCombo
            selection: connectDocMode.currentFiletypeSelection
            onChosen: connectDocMode.currentFiletypeSelection = choice
        }
        DocumentFilter {
            Layout.fillWidth: true
            caption: qsTr("标签:")
            popupMaxHeight: 500
            choices: connectDocMode.tagCombo
            selection: connectDocMode.currentTagSelection
            onChosen: connectDocMode.currentTagSelection = choice
        }
    }
    RowLayout {
        spacing: 5

        FilterDate {
            enabled: !connectDocMode.limit
            day: connectDocMode.startTime
            Accessible.name: qsTr("开始日期")
            onChosen: connectDocMode.startTime = text
            onRefused: connectDocMode.onDateRefused(why)
        }
        UxLabel { text: "-" }
        FilterDate {
            enabled: !connectDocMode.limit
            day: connectDocMode.endTime
            Accessible.name: qsTr("结束日期")
            onChosen: connectDocMode.endTime = text
            onRefused: connectDocMode.onDateRefused(why)
        }
        UxCheckBox {
            id: unlimited
            text: qsTr("不限")
            onClicked: connectDocMode.limit = checked
        }
    }
    Binding { target: unlimited; property: "checked"; value: connectDocMode.limit }
}
