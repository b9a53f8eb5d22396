import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// One button of a title bar.
Button {
    id: control

    property url iconSource

    implicitWidth: UxTheme.titleBarHeight
    implicitHeight: UxTheme.titleBarHeight
    padding: 0
    hoverEnabled: true
    focusPolicy: Qt.TabFocus  // the mouse leaves the keyboard where it is

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        Image {
            anchors.centerIn: parent
            width: UxTheme.smallIconSize
            height: UxTheme.smallIconSize
            source: control.iconSource
        }
    }
    background: Rectangle {
        color: control.pressed ? UxTheme.toolButtonPressed
                               : control.hovered ? UxTheme.toolButtonHovered : UxTheme.transparent

        UxFocusFrame { shown: control.visualFocus }
    }
}
