pragma Singleton
import QtQuick 2.12

// Every colour, size and the font of the screens, each stated once.
QtObject {
    readonly property string fontFamily: "微软雅黑"
    readonly property int fontSize: 12
    readonly property int smallIconSize: 16

    readonly property color text: "#333333"
    readonly property color fieldText: "#515151"
    readonly property color disabledText: "#6a6a6a"
    readonly property color placeholderText: "#737373"
    readonly property color requiredMark: "#d03030"
    readonly property color wrong: "#d03030"
    readonly property color selection: "#3399ff"
    readonly property color selectedText: "white"

    readonly property color background: "white"
    readonly property color disabledBackground: "#f3f3f3"
    readonly property color windowBackground: "#fafafa"
    readonly property color windowBorder: "#BFBFBF"
    readonly property color frame: "#204272"
    readonly property color frameShadow: "#80214174"
    readonly property color focusFrame: "#3399ff"
    readonly property color transparent: "transparent"

    readonly property int titleBarHeight: 30
    readonly property color titleBar: "#f1f1f1"
    readonly property color toolButtonPressed: "#c9ddfc"
    readonly property color toolButtonHovered: "#d6e5fc"

    readonly property color buttonPressed: "#cbddf5"
    readonly property color buttonHovered: "#d7e3f3"
    readonly property color button: "#fafafa"
    readonly property color buttonBorderPressed: "#204174"
    readonly property color buttonBorderHovered: "#2b4e84"
    readonly property color iconButtonActive: "#335191ce"
    readonly property color iconButtonDisabled: "#e6e6e6"
    readonly property real disabledOpacity: 0.45

    readonly property color border: "#c8c8c8"
    readonly property color fieldBorderFocused: "#aaa"
    readonly property int fieldHeight: 24
    readonly property int fieldWidth: 200

    readonly property color menuBackground: "#f0f0f0"
    readonly property color menuBorder: "#cccccc"
    readonly property color menuHighlight: "#d6e5fc"
    readonly property int menuItemHeight: 28

    readonly property color notice: "#fff4e0"
    readonly property color noticeBorder: "#e0b060"

    readonly property color toolTipBorder: "#66000000"
    readonly property int toolTipHeight: 27
    readonly property int toolTipLineHeight: 22
    readonly property int toolTipMaximumWidth: 400
    readonly property int toolTipDelay: 400

    readonly property color treeBorder: "#e0e0e0"
    readonly property int treeRowHeight: 24
    readonly property int treeIndentation: 30
    readonly property int treeIndentationWithoutExpander: 10

    readonly property color alternateRow: "#f5f5f5"
    readonly property color checkedRow: "#ededed"
    readonly property color currentRow: "#f2f2f2"
    readonly property color cellBorder: "#e6e6e6"
    readonly property color tableHeader: "#f1f1f1"
    readonly property color runningStatus: "blue"
    readonly property color doneStatus: "black"
    readonly property color openStatus: "red"
    readonly property color released: "#2f8f46"
    readonly property color gridBorder: "red"
    readonly property int tableRowHeight: 30
    readonly property int checkBoxColumnWidth: 35
    readonly property int indicatorSize: 14

    readonly property int calendarCell: 28

    readonly property color scrollBar: "#c1c1c1"
    readonly property color scrollBarHovered: "#a3a3a3"
    readonly property int scrollBarWidth: 10
}
