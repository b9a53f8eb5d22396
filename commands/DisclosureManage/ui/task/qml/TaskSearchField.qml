import QtQuick 2.12
import UI 1.0

// The name that is searched for, applied with Enter or the icon.
UxSearchField {
    id: field

    placeholderText: qsTr("请输入名称进行搜索")
    onAccepted: theTaskModel.search_text = text
    onSearchClicked: {
        if (text === theTaskModel.search_text)
            return
        theTaskModel.search_text = text
        theTaskModel.current_page = 1
    }

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
}
