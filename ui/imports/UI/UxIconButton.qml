import QtQuick 2.12
import QtQuick.Controls 2.12
import "."

// A button that shows only a picture. The pictures of the states fall back to iconSource.
Button {
    id: control

    property url iconSource
    property url hoveredIconSource: iconSource
    property url pressedIconSource: hoveredIconSource
    property url disabledIconSource: iconSource
    property int iconSize: UxTheme.smallIconSize
    property real iconRotation: 0
    property color pressedColor: UxTheme.iconButtonActive
    property color hoveredColor: UxTheme.iconButtonActive
    property color disabledColor: UxTheme.iconButtonDisabled
    property string tooltipText: ""
    readonly property string shownTip: hovered ? tooltipText : ""

    implicitWidth: 32
    implicitHeight: 32
    padding: 0
    hoverEnabled: true
    onShownTipChanged: UxToolTips.show(control, shownTip, false)
    Accessible.name: text !== "" ? text : tooltipText

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        Image {
            anchors.centerIn: parent
            width: control.iconSize
            height: control.iconSize
            rotation: control.iconRotation
            source: !control.enabled ? control.disabledIconSource
                                     : control.pressed ? control.pressedIconSource
                                                       : control.hovered ? control.hoveredIconSource : control.iconSource
            // A picture of its own for the disabled state is grey already.
            opacity: control.enabled || control.disabledIconSource !== control.iconSource ? 1 : UxTheme.disabledOpacity
        }
    }
    background: Rectangle {
        color: !control.enabled ? control.disabledColor
                                : control.pressed ? control.pressedColor
                                                  : control.hovered ? control.hoveredColor : UxTheme.transparent
        border.width: control.visualFocus ? 1 : 0
        border.color: UxTheme.focusFrame
    }
}
