import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// A list to choose from. The placeholder shows while nothing is chosen or, if editable, typed.
ComboBox {
    id: box

    property string placeholderText: ""
    property int popupMaxHeight: 10000

    function openList() {
        if (!__popup.__popupVisible)
            __popup.toggleShow()
    }

    implicitHeight: UxTheme.fieldHeight
    activeFocusOnPress: true

    style: ComboBoxStyle {
        font.family: UxTheme.fontFamily
        font.pixelSize: UxTheme.fontSize
        textColor: control.enabled ? UxTheme.fieldText : UxTheme.disabledText
        selectionColor: UxTheme.selection
        selectedTextColor: UxTheme.selectedText
        renderType: Text.NativeRendering
        dropDownButtonWidth: UxTheme.smallIconSize
        padding.top: 0
        padding.bottom: 0
        background: Rectangle {
            implicitWidth: 100
            implicitHeight: UxTheme.fieldHeight
            color: control.enabled ? UxTheme.background : UxTheme.disabledBackground
            border.color: control.activeFocus || control.pressed ? UxTheme.fieldBorderFocused : UxTheme.border

            Image {
                anchors.right: parent.right
                anchors.rightMargin: 4
                anchors.verticalCenter: parent.verticalCenter
                width: UxTheme.smallIconSize
                height: UxTheme.smallIconSize
                opacity: control.enabled ? 1 : UxTheme.disabledOpacity
                source: "qrc:/ui/Images/combo.png"
            }
            UxText {
                anchors.fill: parent
                anchors.leftMargin: 8
                anchors.rightMargin: 24
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                color: control.enabled ? UxTheme.placeholderText : UxTheme.disabledText
                visible: control.editable ? control.editText === "" : control.currentIndex < 0
                text: box.placeholderText
            }
            UxFocusFrame { shown: control.activeFocus && !control.editable }
        }
        label: UxText {
            text: control.currentText
            color: control.enabled ? UxTheme.fieldText : UxTheme.disabledText
            leftPadding: 2
            rightPadding: 18
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
        }
        __editor: Item { implicitWidth: 60 }
        __dropDownStyle: MenuStyle {
            font.family: UxTheme.fontFamily
            font.pixelSize: UxTheme.fontSize
            __backgroundColor: UxTheme.background
            __borderColor: UxTheme.border
            __labelColor: UxTheme.fieldText
            __selectedLabelColor: UxTheme.selectedText
            __selectedBackgroundColor: UxTheme.selection
            __maxPopupHeight: box.popupMaxHeight
            __menuItemType: "comboboxitem"
            // The base would take markup and ampersands out of a name.
            itemDelegate.label: UxText {
                text: styleData.text
                color: __currentTextColor
            }
            __scrollerStyle: ScrollViewStyle {}
        }
    }
}
