import QtQuick 2.12

// Lies over a box that scrolls by itself and would keep the wheel; while the box has nothing to scroll, the form gets
// it.
MouseArea {
    property Flickable content
    property Flickable form

    anchors.fill: parent
    acceptedButtons: Qt.NoButton
    onWheel: {
        wheel.accepted = content.contentHeight <= content.height
        if (wheel.accepted)
            form.scrollTo(form.contentY - wheel.angleDelta.y / 2)
    }
}
