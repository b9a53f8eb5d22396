import QtQuick 2.12
import UI 1.0
import "../../qml"

// The date range and the status that the listed tasks have, one below the other where there is no room beside.
Flow {
    id: filter

    width: parent ? Math.min(parent.width, dates.width + spacing + statuses.width) : 0
    spacing: 10

    Row {
        id: dates
        spacing: 5

        UxComboBox {
            id: dateKind
            width: 108
            enabled: !theTaskModel.search_datelimit
            model: [qsTr("实际交底时间"), qsTr("计划交底时间"), qsTr("施工开始日期"), qsTr("施工结束日期")]
            Accessible.name: qsTr("日期类型")
            onActivated: theTaskModel.search_dateindex = index
        }
        FilterDate {
            enabled: !theTaskModel.search_datelimit
            day: theTaskModel.search_startdate
            Accessible.name: qsTr("开始日期")
            onChosen: theTaskModel.search_startdate = text
            onRefused: theTaskModel.onDateRefused(why)
        }
        UxLabel {
            anchors.verticalCenter: parent.verticalCenter
            text: "-"
        }
        FilterDate {
            enabled: !theTaskModel.search_datelimit
            day: theTaskModel.search_enddate
            Accessible.name: qsTr("结束日期")
            onChosen: theTaskModel.search_enddate = text
            onRefused: theTaskModel.onDateRefused(why)
        }
        DateRangeButton {}
        UxCheckBox {
            id: unlimited
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("不限")
            onClicked: theTaskModel.search_datelimit = checked
        }
    }
    Row {
        id: statuses
        spacing: 5

        UxLabel {
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("状态")
        }
        UxComboBox {
            id: status
            width: 74
            model: [qsTr("全部"), qsTranslate("TaskModel", "待交底"), qsTranslate("TaskModel", "已交底"),
                    qsTranslate("TaskModel", "交底中"), qsTranslate("TaskModel", "已过期")]
            Accessible.name: qsTr("状态")
            onActivated: {
                theTaskModel.search_taskstatus = index
                theTaskModel.current_page = 1
            }
        }
    }

    // Bindings of their own, because the user's choice ends one on the property itself.
    Binding { target: dateKind; property: "currentIndex"; value: theTaskModel.search_dateindex }
    Binding { target: unlimited; property: "checked"; value: theTaskModel.search_datelimit }
    Binding { target: status; property: "currentIndex"; value: Math.max(0, theTaskModel.search_taskstatus) }
}
