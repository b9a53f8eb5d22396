import QtQuick 2.12
import UI 1.0
import "../../qml"

// One page of documents. The check marks are the model's, which keeps those of other pages.
UxCheckBoxTableView {
    id: control

    function preview(row) {
        if (model && row >= 0 && row < rowCount)
            connectDocMode.onClickPreviewDoc(model.at(row))
    }

    checkStateRole: "selected"
    activeFocusOnTab: true
    model: connectDocMode.fileListModel ? connectDocMode.fileListModel.task_list : null
    Accessible.name: qsTr("资料")
    style: CheckedTableStyle {}
    Keys.onReturnPressed: preview(currentRow)
    Keys.onEnterPressed: preview(currentRow)
    onDoubleClicked: preview(row)

    UxTableColumn {
        title: qsTr("序号")
        width: 45
        delegate: UxToolTipText {
            text: styleData.row + 1
            horizontalAlignment: Text.AlignHCenter
        }
    }
    UxTableColumn {
        title: qsTr("资料名称")
        role: "docName"
        width: 110
        delegate: UxToolTipText {
            leftPadding: 6
            rightPadding: 6
            elide: Text.ElideRight
            text: styleData.value || ""
        }
    }
    UxTableColumn {
        title: qsTr("预览")
        width: 80
        delegate: Item {
            UxIconButton {
                anchors.centerIn: parent
                implicitWidth: UxTheme.smallIconSize
                implicitHeight: UxTheme.smallIconSize
                iconSource: "qrc:/ui/Images/preview.png"
                hoveredIconSource: "qrc:/ui/Images/preview_hover.png"
                focusPolicy: styleData.selected || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                Accessible.name: qsTr("预览")
                onClicked: control.preview(styleData.row)
            }
        }
    }

    Component {
        id: centredColumn
        UxTableColumn {
            width: 110
            delegate: UxToolTipText {
                horizontalAlignment: Text.AlignHCenter
                text: styleData.value || ""
            }
        }
    }
    Component.onCompleted: {
        insertColumnAt(3, centredColumn.createObject(control, { title: qsTr("编制时间"), role: "weaveTime" }))
        insertColumnAt(4, centredColumn.createObject(control, { title: qsTr("更新人"), role: "updateby" }))
        insertColumnAt(5, centredColumn.createObject(control, { title: qsTr("标签"), role: "docTag" }))
    }
}
