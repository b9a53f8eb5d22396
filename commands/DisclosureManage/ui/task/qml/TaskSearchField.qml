import QtQuick 2.12
import UI 1.0

// The name that is searched for, applied with Enter or the icon.
UxTextField {
    id: field

    rightPadding: 26
    placeholderText: qsTr("请输入名称进行搜索")
    selectByMouse: true
    Accessible.name: placeholderText
    onAccepted: theTaskModel.search_text = text

    // What was typed and not applied gives way to what is searched.
    function showApplied() {
        if (text === theTaskModel.search_text)
            return
        text = theTaskModel.search_text
        cursorPosition = 0  // the beginning of a long name tells more than its end
    }

    Connections {
        target: theTaskModel
        function onSearchTextChanged() { field.showApplied() }
        function onTaskRevealed() { field.showApplied() }
    }

    UxIconButton {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: field.height
        implicitHeight: field.height
        iconSource: "qrc:/ui/Images/search.png"
        focusPolicy: Qt.NoFocus
        Accessible.name: qsTr("搜索")
        onClicked: {
            if (field.text === theTaskModel.search_text)
                return
            theTaskModel.search_text = field.text
            theTaskModel.current_page = 1
        }
    }
}
