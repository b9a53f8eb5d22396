import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "../../qml"

// The department's reminder settings.
DialogPage {
    id: root

    readonly property var frequencies: [qsTr("提醒一次"), qsTr("一天一次")]

    title: qsTr("提醒")

    GridLayout {
        Layout.fillWidth: true
        Layout.maximumWidth: 420
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 15
        Layout.leftMargin: 15
        Layout.rightMargin: 15
        columns: 2
        columnSpacing: 8
        rowSpacing: 6

        UxLabel { text: qsTr("提醒：") }
        RowLayout {
            spacing: 4

            UxCheckBox {
                id: planBox
                focus: true
                checkedState: remindModel.planCheckState
                Accessible.name: planText.text
                onClicked: remindModel.planCheckState = checkedState
            }
            UxLabel {
                id: planText
                text: qsTr("计划交底时间提前")
            }
            UxTextField {
                implicitWidth: 36
                horizontalAlignment: TextInput.AlignHCenter
                text: remindModel.day
                validator: IntValidator { bottom: 0; top: 30 }
                Accessible.name: qsTr("提前天数")
                // The validator lets a sign pass, and 31 to 99 as something still being typed.
                onTextEdited: {
                    var digits = text.replace(/\D/g, "")
                    if (Number(digits) <= validator.top)
                        remindModel.day = digits
                    text = Qt.binding(function () { return remindModel.day })
                }
            }
            UxLabel { text: qsTr("天开始提醒") }
        }
        UxLabel { text: qsTr("频率：") }
        UxComboBox {
            Layout.fillWidth: true
            implicitHeight: 30
            model: root.frequencies
            currentIndex: remindModel.frequencyPlan
            Accessible.name: qsTr("计划提醒频率")
            onActivated: remindModel.frequencyPlan = index
        }
        UxCheckBox {
            Layout.row: 2
            Layout.column: 1
            text: qsTr("提醒已过期的未交底任务")
            checkedState: remindModel.overdueCheckState
            onClicked: remindModel.overdueCheckState = checkedState
        }
        UxLabel { text: qsTr("频率：") }
        UxComboBox {
            Layout.fillWidth: true
            implicitHeight: 30
            model: root.frequencies
            currentIndex: remindModel.frequencyOverdue
            Accessible.name: qsTr("过期提醒频率")
            onActivated: remindModel.frequencyOverdue = index
        }
    }
    Item { Layout.fillHeight: true }
    DialogButtons {
        Layout.fillWidth: true
        onAccepted: remindModel.onClickOk()
        onRejected: root.close()
    }
}
