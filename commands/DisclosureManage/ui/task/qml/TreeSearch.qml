import QtQuick 2.12
import UI 1.0

// What is searched for in a tree, with Enter or the icon; the same text is searched for once.
UxTextField {
    id: field

    property string searched: ""

    signal wanted(string text)

    // Shows everything again.
    function forget() {
        text = ""
        search()
    }

    function search() {
        if (text === searched)
            return
        searched = text
        wanted(text)
    }

    implicitHeight: 30
    rightPadding: 32
    Accessible.name: placeholderText
    onAccepted: search()

    UxIconButton {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: field.height
        implicitHeight: field.height
        iconSource: "qrc:/ui/Images/search.png"
        focusPolicy: Qt.NoFocus
        Accessible.name: qsTr("搜索")
        onClicked: field.search()
    }
}
