import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// A field for several lines of text, on demand with a greatest length in UTF-16 units.
TextArea {
    id: area

    property int maxlength: 300
    property bool maxlengthEnable: false
    property string __former: ""

    // What was inserted last is cut, so that typing in the middle of a full text does not eat its end.
    function cut() {
        var excess = length - maxlength
        if (maxlengthEnable && excess > 0) {
            var end = cursorPosition
            var start = end - (length - __former.length)
            var whole = getText(0, length)
            var inserted = start >= 0 && whole.substring(0, start) + whole.substring(end) === __former
            var from = inserted ? Math.max(start, end - excess) : maxlength
            var to = inserted ? end : length
            if (from > 0 && isLeadingSurrogate(whole.charCodeAt(from - 1)))
                --from
            remove(from, to)
            if (length > maxlength)
                remove(maxlength, length)
        }
        __former = getText(0, length)
    }

    function isLeadingSurrogate(unit) {
        return unit >= 0xd800 && unit < 0xdc00
    }

    font.family: UxTheme.fontFamily
    font.pixelSize: UxTheme.fontSize
    textColor: enabled ? UxTheme.fieldText : UxTheme.disabledText
    wrapMode: TextEdit.Wrap
    textFormat: TextEdit.PlainText
    tabChangesFocus: true
    onTextChanged: cut()
    onMaxlengthChanged: cut()
    onMaxlengthEnableChanged: cut()

    style: TextAreaStyle {
        backgroundColor: UxTheme.background
        selectionColor: UxTheme.selection
        selectedTextColor: UxTheme.selectedText
        renderType: Text.NativeRendering
        incrementControl: null
        decrementControl: null
        handle: UxScrollHandle {}
        scrollBarBackground: UxScrollGround {}
        frame: Rectangle {
            color: UxTheme.background
            border.color: area.activeFocus ? UxTheme.fieldBorderFocused : UxTheme.border
        }
    }
}
