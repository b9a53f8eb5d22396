import QtQuick 2.12
import QtQuick.Layouts 1.12
import "."

// The month that a calendar shows, and the steps to others.
RowLayout {
    id: control

    property date current: new Date()

    signal step(int months)

    spacing: 0

    UxPagingButton {
        objectName: "previousYear"
        iconSource: "qrc:/ui/Images/calendar/previous_year.png"
        Accessible.name: qsTr("上一年")
        onClicked: control.step(-12)
    }
    UxPagingButton {
        objectName: "previousMonth"
        iconSource: "qrc:/ui/Images/calendar/previous_month.png"
        Accessible.name: qsTr("上一月")
        onClicked: control.step(-1)
    }
    UxText {
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("%1年%2月").arg(control.current.getFullYear()).arg(control.current.getMonth() + 1)
    }
    UxPagingButton {
        objectName: "nextMonth"
        iconSource: "qrc:/ui/Images/calendar/next_month.png"
        Accessible.name: qsTr("下一月")
        onClicked: control.step(1)
    }
    UxPagingButton {
        objectName: "nextYear"
        iconSource: "qrc:/ui/Images/calendar/next_year.png"
        Accessible.name: qsTr("下一年")
        onClicked: control.step(12)
    }
}
