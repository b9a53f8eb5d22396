import QtQuick 2.12
import UI 1.0

// A key that is searched for with Enter or the icon, and known to the screen as it is typed.
UxSearchField {
    id: field

    property string key

    signal keyTyped(string typed)
    signal wanted()

    onKeyChanged: if (text !== key) text = key
    onTextChanged: if (text !== key) keyTyped(text)
    onAccepted: wanted()
    onSearchClicked: wanted()
}
