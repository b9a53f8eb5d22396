import QtQuick 2.12
import UI 1.0

// "确定" and "取消" on either side of the middle, 10 above the bottom of the window, whose border is one of them.
Item {
    property alias acceptText: ok.text

    signal accepted()
    signal rejected()

    implicitHeight: ok.height + 9

    UxButton {
        id: ok
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.horizontalCenterOffset: -(width / 2 + 20)
        text: qsTr("确定")
        onClicked: parent.accepted()
    }
    UxButton {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.horizontalCenterOffset: width / 2 + 20
        text: qsTr("取消")
        onClicked: parent.rejected()
    }
}
