pragma Singleton
import QtQuick 2.12

// The one tool tip that is shown at a time; a window has hundreds of texts and buttons that may want it.
QtObject {
    id: tips

    property var tip: null
    property Item owner: null

    // An empty text takes the item's tool tip away.
    function show(item, text, wrapText) {
        if (text === "" && owner !== item)
            return
        if (!tip)
            tip = Qt.createComponent("UxToolTip.qml").createObject(tips)
        tip.close()
        owner = text === "" ? null : item
        if (!owner)
            return
        tip.parent = item
        tip.text = text
        tip.wrapText = wrapText
        tip.open()
    }
}
