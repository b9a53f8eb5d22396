import QtQuick 2.12
import QtQuick.Window 2.12
import QtGraphicalEffects 1.0
import "."

// A frameless window with a shadowed frame around mainLayout.
Window {
    id: control

    property Item mainLayout

    flags: Qt.FramelessWindowHint
    color: UxTheme.transparent

    // Beside mainLayout and of its size. Bound, since anchors would warn whenever mainLayout changes its parent.
    Item {
        parent: control.mainLayout ? control.mainLayout.parent : control.contentItem
        x: control.mainLayout ? control.mainLayout.x : 0
        y: control.mainLayout ? control.mainLayout.y : 0
        width: control.mainLayout ? control.mainLayout.width : 0
        height: control.mainLayout ? control.mainLayout.height : 0
        visible: control.mainLayout !== null
        z: -1

        DropShadow {
            anchors.fill: frame
            source: frame
            horizontalOffset: 0
            verticalOffset: 0
            radius: 10.0
            samples: 17
            color: UxTheme.frameShadow
        }
        Rectangle {
            id: frame
            objectName: "frame"
            anchors.fill: parent
            anchors.margins: -1
            color: UxTheme.frame
        }
        Rectangle {
            anchors.fill: parent
            color: UxTheme.windowBackground
        }
    }
}
