import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// The dates of the task. Construction cannot be made to end before it starts.
GridLayout {
    id: dates

    property real captionSpace: 0
    readonly property Item endField: end.field
    readonly property Item deadlineField: deadline.field
    readonly property bool typing: start.value !== addTaskModel.constStartDate || end.value !== addTaskModel.constEndDate
                                   || plan.value !== addTaskModel.planDate || deadline.value !== addTaskModel.endDate

    // False, with the keyboard in the first such field, while what was typed is no date that could be saved.
    function settled() {
        for (var i = 0; i < children.length; ++i)
            if (children[i].field.wrong !== "") {
                children[i].field.forceActiveFocus()
                children[i].field.tell()
                return false
            }
        return true
    }

    columns: 2
    columnSpacing: 30

    UxNameCalendar {
        id: start
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        name: qsTr("施工开始日期：")
        calendarSpace: dates.captionSpace
        value: addTaskModel.constStartDate
        maximumDate: addTaskModel.constEndDate
        onPicked: addTaskModel.constStartDate = text
        onRefused: addTaskModel.onDateRefused(why)
    }
    UxNameCalendar {
        id: end
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        name: qsTr("施工结束日期：")
        calendarSpace: dates.captionSpace
        value: addTaskModel.constEndDate
        minimumDate: addTaskModel.constStartDate
        onPicked: addTaskModel.constEndDate = text
        onRefused: addTaskModel.onDateRefused(why)
    }
    UxNameCalendar {
        id: plan
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        name: qsTr("计划交底日期：")
        calendarSpace: dates.captionSpace
        value: addTaskModel.planDate
        onPicked: addTaskModel.planDate = text
        onRefused: addTaskModel.onDateRefused(why)
    }
    UxNameCalendar {
        id: deadline
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        name: qsTr("截止日期：")
        mustfill: true
        calendarSpace: dates.captionSpace
        value: addTaskModel.endDate
        onPicked: addTaskModel.endDate = text
        onRefused: addTaskModel.onDateRefused(why)
    }
}
