import QtQuick 2.12
import "."

// A field for what is searched for, applied with Enter (accepted) or with the icon; the cross empties it.
UxTextField {
    id: field

    // The icon or the cross was clicked.
    signal searchClicked()

    rightPadding: 2 * height + 2
    Accessible.name: placeholderText

    UxIconButton {
        objectName: "clear"
        anchors.right: search.left
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: field.height
        implicitHeight: field.height
        focusPolicy: Qt.NoFocus
        visible: field.text !== ""
        iconSource: "qrc:/ui/Images/clear.png"
        Accessible.name: qsTr("清空")
        onClicked: {
            field.clear()
            field.searchClicked()
        }
    }
    UxIconButton {
        id: search
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: field.height
        implicitHeight: field.height
        focusPolicy: Qt.NoFocus
        iconSource: "qrc:/ui/Images/search.png"
        Accessible.name: qsTr("搜索")
        onClicked: field.searchClicked()
    }
}
