import QtQuick 2.12
import QtQuick.Layouts 1.12
import "."

// The title bar of a frameless window or of a pop-up inside one; its owner does the moving.
Rectangle {
    id: control

    property bool hasMaxButton: true
    property bool hasCloseButton: true
    property string title: ""
    property real mouseX
    property real mouseY
    property Component toolBar: WindowToolBar {
        hasMaxButton: control.hasMaxButton
        hasCloseButton: control.hasCloseButton
        onToggleMaximized: control.toggleMaximized()
        onClose: {
            control.closing()
            control.close()
        }
    }

    // Precedes close(), for an owner that has something to put away first.
    signal closing()
    signal toggleMaximized()
    signal close()
    signal titlebarPressed()
    signal titlebarPositionChanged()
    signal titlebarDbClick()

    implicitHeight: UxTheme.titleBarHeight
    height: UxTheme.titleBarHeight
    color: UxTheme.titleBar
    Layout.fillWidth: true
    Accessible.role: Accessible.TitleBar
    Accessible.name: title

    UxText {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.right: tools.left
        elide: Text.ElideRight
        text: "  " + control.title
    }

    MouseArea {
        function record(mouse) {
            control.mouseX = mouse.x
            control.mouseY = mouse.y
        }

        anchors.fill: parent
        onPressed: {
            record(mouse)
            control.titlebarPressed()
        }
        onPositionChanged: {
            record(mouse)
            control.titlebarPositionChanged()
        }
        onDoubleClicked: {
            record(mouse)
            control.titlebarDbClick()
        }
    }

    Loader {
        id: tools
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: control.toolBar
    }
}
