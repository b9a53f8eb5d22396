#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QVBoxLayout>

#include "bench/Report.h"
#include "commands/DisclosureManage/DisclosureMgrProvider.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "tests/support/ScreenHost.h"

namespace {

/// The main window's controls as Qt ships them: a title with a button, the tree, five buttons, the task list's
/// tools, table and page bar, and the menus and the pop-up that are made with the page.
constexpr char kStock[] = R"(
import QtQuick 2.12
import QtQuick.Controls 1.4 as Old
import QtQuick.Controls 2.12
import QtQuick.Layouts 1.12
import QtQml 2.12
import QtQml.Models 2.12

Rectangle {
    border.width: 1
    ColumnLayout {
        anchors.fill: parent
        Rectangle {
            Layout.fillWidth: true
            height: 30
            Text { text: "Title" }
            Button { anchors.right: parent.right; icon.source: "qrc:/ui/Images/window_toolbar/close.png" }
        }
        RowLayout {
            ColumnLayout {
                Layout.maximumWidth: 180
                Old.TreeView {
                    id: tree
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    headerVisible: false
                    model: theModel
                    selection: ItemSelectionModel { model: theModel }
                    itemDelegate: Rectangle {
                        color: styleData.selected ? "#3399ff" : "white"
                        Text { text: styleData.value ? styleData.value.nodeDisName : ""; elide: Text.ElideRight }
                        MouseArea { anchors.fill: parent; acceptedButtons: Qt.RightButton }
                    }
                    Old.TableViewColumn { role: "item" }
                    Component.onCompleted: {
                        expand(theModel.defaultIndex)
                        selection.setCurrentIndex(theModel.defaultIndex, ItemSelectionModel.ClearAndSelect)
                    }
                }
                Row {
                    Repeater {
                        model: ["add", "edit", "del", "up", "down"]
                        Button { width: 32; height: 32; icon.source: "qrc:/ui/Images/" + modelData + ".png" }
                    }
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Flow {
                    Layout.fillWidth: true
                    Repeater {
                        model: ["add", "del", "moveto", "export"]
                        Button { width: 32; height: 24; icon.source: "qrc:/ui/Images/" + modelData + ".png" }
                    }
                    Old.ComboBox { model: ["1", "2", "3", "4"] }
                    Repeater {
                        model: 2
                        TextField {
                            Button { anchors.right: parent.right; icon.source: "qrc:/ui/Images/calendar.png" }
                        }
                    }
                    Label { text: "-" }
                    Button {
                        icon.source: "qrc:/ui/Images/combo.png"
                        Menu {
                            id: ranges
                            Instantiator {
                                model: 16
                                delegate: MenuItem { text: modelData }
                                onObjectAdded: ranges.insertItem(index, object)
                            }
                        }
                    }
                    Old.CheckBox { text: "5" }
                    Label { text: "6" }
                    Old.ComboBox { model: ["1", "2", "3", "4", "5"] }
                    TextField {
                        placeholderText: "7"
                        Button { anchors.right: parent.right; icon.source: "qrc:/ui/Images/search.png" }
                    }
                    Button { text: "8" }
                }
                Old.TableView {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Old.TableViewColumn { title: "1"; width: 90 }
                    Old.TableViewColumn { title: "2"; width: 90 }
                    Old.TableViewColumn { title: "3"; width: 90 }
                    Old.TableViewColumn { title: "4"; width: 90 }
                    Old.TableViewColumn { title: "5"; width: 90 }
                    Old.TableViewColumn { title: "6"; width: 90 }
                    Old.TableViewColumn { title: "7"; width: 90 }
                    Old.TableViewColumn { title: "8"; width: 90 }
                    Old.TableViewColumn { title: "9"; width: 90 }
                    Old.TableViewColumn { title: "10"; width: 90 }
                    Old.TableViewColumn { title: "11"; width: 90 }
                    Old.TableViewColumn { title: "12"; width: 90 }
                    Old.TableViewColumn { title: "13"; width: 90 }
                    Old.TableViewColumn { title: "14"; width: 90 }
                    Old.TableViewColumn { title: "15"; width: 90 }
                }
                Row {
                    Label { text: "9" }
                    Old.ComboBox { model: [15, 20, 30] }
                    Repeater {
                        model: ["go_to_last_page", "go_to_next_page", "go_to_next_page", "go_to_last_page"]
                        Button { width: 32; height: 32; icon.source: "qrc:/ui/Images/" + modelData + ".png" }
                    }
                    Label { text: "10" }
                    TextField { width: 30 }
                    Label { text: "11" }
                }
            }
        }
    }
    Menu {
        MenuItem { text: "1" }
        MenuItem { text: "2" }
        MenuItem { text: "3" }
        MenuItem { text: "4" }
        MenuItem { text: "5" }
    }
    Popup {
        modal: true
        Column {
            Row { Label { text: "Name" } TextField { } }
            Row { Button { text: "OK" } Button { text: "Cancel" } }
        }
    }
}
)";

/// Notes when the first view that appears has shown a frame, and closes the dialog around it.
class FirstFrame : public QObject {
public:
    FirstFrame() {
        qApp->installEventFilter(this);
        m_timer.start();
    }
    double seconds() const { return m_seconds; }

    bool eventFilter(QObject* watched, QEvent*) override {
        auto* view = qobject_cast<QQuickView*>(watched);
        if (!view || view == m_view)
            return false;
        m_view = view;
        connect(view, &QQuickWindow::frameSwapped, this, [this] {
            if (m_seconds > 0 || !m_view->rootObject())
                return;
            m_seconds = m_timer.nsecsElapsed() * 1e-9;
            QMetaObject::invokeMethod(QApplication::activeModalWidget(), "close", Qt::QueuedConnection);
        });
        return false;
    }

private:
    QElapsedTimer m_timer;
    QQuickView* m_view = nullptr;
    double m_seconds = 0;
};

double ShowMainWindow() {
    DisclosureMgrProvider provider;
    const FirstFrame frame;
    provider.ShowMainWindow();
    return frame.seconds();
}

double ShowStockDialog(support::ScreenHost& host) {
    const FirstFrame frame;
    QDialog dialog(&host.window, Qt::FramelessWindowHint);
    auto* view = new QQuickView;
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(QWidget::createWindowContainer(view, &dialog));
    layout->setContentsMargins(0, 0, 0, 0);
    dialog.setMinimumSize(host.window.size() * 0.8);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    auto* model = new CatalogTreeModel(view);
    model->setCatalogs(host.manager.catalogs);
    view->rootContext()->setContextProperty("theModel", model);
    auto* component = new QQmlComponent(view->engine(), view);
    component->setData(kStock, QUrl("qrc:/stock.qml"));
    view->setContent(QUrl("qrc:/stock.qml"), component, component->create());
    dialog.exec();
    return frame.seconds();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_QUICK_CONTROLS_1_STYLE", "Base");
    const QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    support::ScreenHost host;
    host.manager.fill();
    for (int i = 0; i < 200; ++i)
        host.manager.catalogs.push_back({L"n" + std::to_wstring(i), L"分部工程" + std::to_wstring(i), L"all", i, i});
    bench::Row(
        "first frame of the main window / a dialog with stock controls", 1.1, [] { return ShowMainWindow(); },
        [&host] { return ShowStockDialog(host); });
    return 0;
}
