import QtQuick 2.12
import "."

// The box of a check box in its three states.
Rectangle {
    property int checkState: Qt.Unchecked
    property color indicatorColor: UxTheme.selection
    property bool hovered: false

    implicitWidth: UxTheme.indicatorSize
    implicitHeight: UxTheme.indicatorSize
    radius: 2
    opacity: enabled ? 1 : UxTheme.disabledOpacity
    color: checkState === Qt.Unchecked ? UxTheme.background : indicatorColor
    border.color: checkState !== Qt.Unchecked || hovered ? indicatorColor : UxTheme.border

    Image {
        anchors.centerIn: parent
        visible: parent.checkState !== Qt.Unchecked
        width: UxTheme.smallIconSize
        height: UxTheme.smallIconSize
        scale: parent.width / UxTheme.smallIconSize
        source: parent.checkState === Qt.PartiallyChecked ? "qrc:/ui/Images/checkbox/partial.png"
                                                          : "qrc:/ui/Images/checkbox/checked.png"
    }
}
