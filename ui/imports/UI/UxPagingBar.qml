import QtQuick 2.12
import QtQuick.Layouts 1.12
import "."

// The page bar under a list. It holds no rule about pages: the screen answers the signals and the typed page.
RowLayout {
    id: control

    property int itemsPerPage: 10
    property int totalCount: 0  // below 0 while it is not known
    property int currentPage: 1
    property int totalPage: 1
    property var itemsPerPageModel: [10, 20, 30]

    signal firstPage()
    signal prevPage()
    signal nextPage()
    signal lastPage()

    spacing: 6

    UxText {
        visible: control.totalCount >= 0
        text: qsTr("共计") + control.totalCount + qsTr("条数据")
    }
    UxComboBox {
        objectName: "pageSizes"
        Layout.preferredWidth: 60
        model: control.itemsPerPageModel
        currentIndex: control.itemsPerPageModel.indexOf(control.itemsPerPage)
        Accessible.name: qsTr("每页条数")
        onActivated: {
            control.itemsPerPage = control.itemsPerPageModel[index]
            currentIndex = Qt.binding(function () { return control.itemsPerPageModel.indexOf(control.itemsPerPage) })
        }
    }
    UxPagingButton {
        objectName: "first"
        iconSource: "qrc:/ui/Images/go_to_last_page.png"
        iconRotation: 180
        tooltipText: qsTr("首页")
        enabled: control.currentPage > 1
        onClicked: control.firstPage()
    }
    UxPagingButton {
        objectName: "previous"
        iconSource: "qrc:/ui/Images/go_to_next_page.png"
        iconRotation: 180
        tooltipText: qsTr("上一页")
        enabled: control.currentPage > 1
        onClicked: control.prevPage()
    }
    UxText { text: qsTr("页码") }
    UxTextField {
        function enter() {
            var page = parseInt(text)
            if (!isNaN(page))
                control.currentPage = page
            text = Qt.binding(function () { return control.currentPage })
        }

        objectName: "page"
        Layout.preferredWidth: 30
        leftPadding: 2
        rightPadding: 2
        horizontalAlignment: TextInput.AlignHCenter
        text: control.currentPage
        validator: RegExpValidator { regExp: /\d{0,9}/ }
        Accessible.name: qsTr("页码")
        onEditingFinished: enter()
    }
    UxText { text: "/ " + control.totalPage }
    UxPagingButton {
        objectName: "next"
        iconSource: "qrc:/ui/Images/go_to_next_page.png"
        tooltipText: qsTr("下一页")
        enabled: control.currentPage < control.totalPage
        onClicked: control.nextPage()
    }
    UxPagingButton {
        objectName: "last"
        iconSource: "qrc:/ui/Images/go_to_last_page.png"
        tooltipText: qsTr("末页")
        enabled: control.currentPage < control.totalPage
        onClicked: control.lastPage()
    }
}
