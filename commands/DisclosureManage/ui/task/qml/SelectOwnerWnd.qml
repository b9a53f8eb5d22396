import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0

// The picker of the discloser.
Rectangle {
    id: root

    property alias title: titleBar.title

    signal close()
    signal titlebarPressed()
    signal titlebarPositionChanged()

    color: UxTheme.background
    border.width: 1
    border.color: UxTheme.windowBorder
    Keys.onEscapePressed: close()

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 1
        spacing: 0

        WindowTitleBar {
            id: titleBar
            title: qsTr("选择交底人")
            hasMaxButton: false
            onClose: root.close()
            onTitlebarPressed: root.titlebarPressed()
            onTitlebarPositionChanged: root.titlebarPositionChanged()
        }
        PeopleSearch {
            Layout.fillWidth: true
            Layout.margins: 10
            focus: true
            onWanted: theSelectOwnerWnd.setSearchText(text)
        }
        PeopleTree {
            id: tree

            property bool shown: false  // until then the selection is the model's

            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.leftMargin: 10
            Layout.rightMargin: 10
            Layout.bottomMargin: 10
            model: theSelectOwnerWnd.ownerDataModel
            itemDelegate: PeopleRow {
                highlighted: styleData.selected && !theSelectOwnerWnd.isDepNode(styleData.index)
            }
            onCurrentIndexChanged: if (shown) model.currentIndex = currentIndex
            onActivated: if (!theSelectOwnerWnd.isDepNode(index)) theSelectOwnerWnd.onClickOk()
            Component.onCompleted: {
                select(model.currentIndex)
                shown = true
            }
        }
        DialogButtons {
            Layout.fillWidth: true
            onAccepted: theSelectOwnerWnd.onClickOk()
            onRejected: root.close()
        }
    }
}
