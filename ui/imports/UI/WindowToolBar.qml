import QtQuick 2.12

// The buttons at the right end of a title bar.
Row {
    id: control

    property bool hasMaxButton: true
    property bool hasCloseButton: true

    signal toggleMaximized()
    signal close()

    function picture(button, name) {
        var state = button.pressed ? "_pressed" : button.hovered ? "_hover" : ""
        return "qrc:/ui/Images/window_toolbar/" + name + state + ".png"
    }

    WindowToolBarButton {
        id: maxButton
        visible: control.hasMaxButton
        iconSource: control.picture(maxButton, "max")
        Accessible.name: qsTr("最大化")
        onClicked: control.toggleMaximized()
    }
    WindowToolBarButton {
        id: closeButton
        visible: control.hasCloseButton
        iconSource: control.picture(closeButton, "close")
        Accessible.name: qsTr("关闭")
        onClicked: control.close()
    }
}
