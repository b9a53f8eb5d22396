import QtQuick 2.12
import QtGraphicalEffects 1.0
import "."

// A round picture, used for heads.
Rectangle {
    id: control

    property url source

    width: 32
    height: 32
    radius: width / 2
    color: UxTheme.transparent
    Accessible.role: Accessible.Graphic

    Image {
        id: picture
        anchors.fill: parent
        visible: false
        fillMode: Image.PreserveAspectCrop
        source: control.source
    }
    Rectangle {
        id: circle
        anchors.fill: parent
        radius: control.radius
        visible: false
    }

    // The software renderer draws no effects; there the picture is painted through a round clip.
    Loader {
        anchors.fill: parent
        sourceComponent: GraphicsInfo.api === GraphicsInfo.Software ? painted : masked
    }
    Component {
        id: masked
        OpacityMask {
            source: picture
            maskSource: circle
        }
    }
    Component {
        id: painted
        Canvas {
            id: canvas
            property url source: control.source

            onSourceChanged: if (source != "") loadImage(source)
            onImageLoaded: requestPaint()
            Component.onCompleted: if (source != "") loadImage(source)
            onPaint: {
                var context = getContext("2d")
                context.reset()
                if (!isImageLoaded(source) || picture.status !== Image.Ready)
                    return
                // As large as its middle needs to be to fill the circle, in its own proportions.
                var scale = Math.max(width / picture.implicitWidth, height / picture.implicitHeight)
                var drawnWidth = picture.implicitWidth * scale
                var drawnHeight = picture.implicitHeight * scale
                context.beginPath()
                context.arc(width / 2, height / 2, width / 2, 0, 2 * Math.PI)
                context.clip()
                context.drawImage(source, (width - drawnWidth) / 2, (height - drawnHeight) / 2, drawnWidth, drawnHeight)
            }

            Connections {
                target: picture
                function onStatusChanged() { canvas.requestPaint() }
            }
        }
    }
}
