import QtQuick 2.12
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// A check box with text.
CheckBox {
    id: box

    property color indicatorColor: UxTheme.selection

    style: CheckBoxStyle {
        spacing: 6
        indicator: UxCheckIndicator {
            checkState: control.checkedState
            indicatorColor: box.indicatorColor
            hovered: control.hovered
            enabled: control.enabled
        }
        label: UxText {
            text: control.text
            color: control.enabled ? UxTheme.fieldText : UxTheme.disabledText
        }
        background: Item {
            UxFocusFrame {
                anchors.margins: -2
                shown: control.activeFocus
            }
        }
    }
}
