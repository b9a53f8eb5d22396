import QtQuick 2.12
import UI 1.0

// What is searched for in a tree, with Enter or the icon; the same text is searched for once.
UxSearchField {
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
    onAccepted: search()
    onSearchClicked: search()
}
