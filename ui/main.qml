import QtQuick 2.12
import QtQuick.Layouts 1.12
import UI 1.0
import "qrc:/commands/DisclosureManage/ui/task/qml"

// The main window: catalogs on the left, tasks on the right.
Rectangle {
    id: root

    property alias title: titleBar.title
    // A pop-up waits for an answer.
    readonly property bool asking: namePopup.shown

    signal signalCatalogOption(variant type, variant data)
    signal signalUpdateNextFolderName()
    signal close()
    signal toggleMaximized()
    signal titlebarPressed()
    signal titlebarPositionChanged()
    signal titlebarDbClick()

    // Something behind the window was clicked.
    function mark() { windowMark.flash() }

    color: UxTheme.background
    border.width: 1
    border.color: UxTheme.windowBorder

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 1
        spacing: 0

        WindowTitleBar {
            id: titleBar
            title: qsTr("交底管理")
            hasMaxButton: false
            onClose: root.close()
            onToggleMaximized: root.toggleMaximized()
            onTitlebarPressed: root.titlebarPressed()
            onTitlebarPositionChanged: root.titlebarPositionChanged()
            onTitlebarDbClick: root.titlebarDbClick()
        }

        UxNoticeBar {
            Layout.fillWidth: true
            visible: theWindow.service.lost
            text: theWindow.service.reason + qsTr("。已输入的内容不会丢失，恢复后会自动重新读取")
            actionText: qsTr("刷新")
            onActed: theWindow.refresh()
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 0

            CatalogPane {
                id: catalogs
                Layout.preferredWidth: 180
                Layout.maximumWidth: 180
                Layout.fillHeight: true
                Layout.leftMargin: 20
                Layout.topMargin: 20
                Layout.bottomMargin: 20
                focus: true
                onOptionChosen: root.signalCatalogOption(option, "")
                onNameWanted: namePopup.openFor(option)
                onMenuClosed: {
                    if (!namePopup.shown)
                        forceActiveFocus()
                }
            }

            DisClosureTaskMgr {
                Layout.fillWidth: true
                Layout.fillHeight: true
            }
        }

        // What was done is told here, quietly.
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: UxTheme.fieldHeight
            color: UxTheme.titleBar

            UxText {
                anchors.fill: parent
                anchors.leftMargin: 20
                anchors.rightMargin: 20
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                text: theWindow.message
                Accessible.role: Accessible.StatusBar
                Accessible.name: text
            }
        }
    }

    Shortcut {
        sequence: StandardKey.Refresh
        onActivated: theWindow.refresh()
    }

    UxWindowMark { id: windowMark }

    UxOnDemand {
        id: namePopup

        readonly property bool shown: item !== null && item.visible

        function openFor(option) {
            wanted({}, function (made) {
                made.proposalWanted.connect(root.signalUpdateNextFolderName)
                made.nameGiven.connect(root.signalCatalogOption)
                made.closed.connect(function () { if (catalogs) catalogs.forceActiveFocus() })  // it may close with the page
            }).openFor(option)
        }

        file: "qrc:/commands/DisclosureManage/ui/task/qml/FolderNamePopup.qml"
    }
}
