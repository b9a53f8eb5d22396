#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sys/wait.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>
#include <QWidget>

#include "bench/Client.h"
#include "bench/Report.h"
#include "bench/Served.h"
#include "commands/DisclosureManage/DisclosureMgrProvider.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "plugin/service/CDisclosureManageMgr.h"
#include "sdk/basetools/TextConversion.h"
#include "tests/support/FakeHost.h"
#include "tests/support/QuickPilot.h"

namespace {

constexpr char kDept[] = "load-dept";

/// The rows' table as Qt ships it, with a column for each that ours has.
constexpr char kStock[] = R"(
import QtQuick 2.12
import QtQuick.Controls 1.4

TableView {
    id: table
    property var rows: []
    property var titles: ["name", "name", "disclosureTaskViewportList", "disclosureTaskDocList", "constructionStartDateMills",
        "constructionEndDateMills", "planDisclosureDateMills", "disclosureUserName", "actualDisclosureDateMills", "id",
        "status", "id", "updateDateMills", "updateBy"]
    model: rows
    Component {
        id: column
        TableViewColumn { width: 95 }
    }
    Component.onCompleted: titles.forEach(function (title) {
        addColumn(column.createObject(table, { title: title, role: title }))
    })
}
)";

/// Seconds from `work` until the window has shown a frame after it.
double untilPainted(QQuickWindow& window, const std::function<void()>& work) {
    QElapsedTimer timer;
    QEventLoop loop;
    timer.start();
    work();
    QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    window.update();
    loop.exec();
    return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

/// Starts the watch when the list's gathering ends, before the timer's own slots run.
class GatheringEnd final : public QObject {
public:
    explicit GatheringEnd(QTimer& timer) { timer.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Timer)
            watch.start();
        return false;
    }
    QElapsedTimer watch;
};

/// The main window over the real service layer, and a click on the other of two catalogs for each run.
class MainWindow {
public:
    explicit MainWindow(QQuickView& view)
        : m_view(view),
          m_list(*qobject_cast<TaskManagerViewModel*>(
              view.rootContext()->contextProperty("theTaskModel").value<QObject*>())),
          m_gathering(*m_list.findChild<QTimer*>()) {}

    double clickToPage() {
        m_isFirst = !m_isFirst;
        const QStringList names = catalogNames();
        QQuickItem* row = support::QuickPilot(&m_view).find("name", names[m_isFirst ? 0 : 1]);
        if (!row)
            throw std::runtime_error("no such catalog");
        QEventLoop loop;
        const auto shown = QObject::connect(&m_list, &TaskManagerViewModel::taskModelChanged, &loop, [&] {
            QObject::connect(&m_view, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        QTest::mouseClick(&m_view, Qt::LeftButton, {}, support::centreOf(row));
        loop.exec();
        QObject::disconnect(shown);
        if (m_list.taskModel()->task_list()->size() != 15)
            throw std::runtime_error("not a full page");
        return static_cast<double>(m_gathering.watch.nsecsElapsed()) * 1e-9;
    }

private:
    /// 全部, which has all tasks, and the first catalog in it.
    QStringList catalogNames() const {
        auto* catalogs =
            qobject_cast<CatalogTreeModel*>(m_view.rootContext()->contextProperty("theModel").value<QObject*>());
        const QModelIndex top = catalogs->index(0, 0);
        const auto name = [&](const QModelIndex& index) {
            return static_cast<CatalogTreeNode*>(catalogs->nodeOf(index))->nodeDisName();
        };
        return {name(top), name(catalogs->index(0, 0, top))};
    }

    QQuickView& m_view;
    TaskManagerViewModel& m_list;
    GatheringEnd m_gathering;
    bool m_isFirst = true;
};

/// What a window without our code would do: a request, its JSON, and the stock table.
class Stock {
public:
    Stock(bench::Client& client, QString catalogId) : m_client(client), m_catalogId(std::move(catalogId)) {
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        QQmlComponent component(m_view.engine());
        component.setData(kStock, QUrl("qrc:/stock.qml"));
        m_view.setContent(QUrl("qrc:/stock.qml"), nullptr, component.create());
        m_view.resize(1400, 700);
        m_view.show();
    }
    double requestToPage() {
        m_isFirst = !m_isFirst;
        return untilPainted(m_view, [&] {
            const std::string answer = m_client.ask(
                "GET /rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?currentPage=1&deptId=load-dept"
                "&disclosureCatalogId=" +
                (m_isFirst ? std::string() : m_catalogId.toStdString()) + "&pageSize=15");
            const auto body = QByteArray::fromStdString(answer.substr(answer.find("\r\n\r\n") + 4));
            const QVariantList rows =
                QJsonDocument::fromJson(body).object()["result"].toObject()["result"].toArray().toVariantList();
            if (rows.size() != 15)
                throw std::runtime_error("not a full page");
            m_view.rootObject()->setProperty("rows", rows);
        });
    }

private:
    bench::Client& m_client;
    QString m_catalogId;
    QQuickView m_view;
    bool m_isFirst = true;
};

std::string seeded(const std::string& tasks) {
    const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    const auto folder = build.parent_path() / "bench-data";
    std::filesystem::create_directories(folder);
    const std::string file = (folder / ("list-" + tasks + ".db")).string();
    if (!std::filesystem::exists(file + ".seeded")) {
        int status = 0;
        ::waitpid(bench::start("disclosure-service", {"seed", "--tasks", tasks, "--database", "sqlite:" + file}),
                  &status, 0);
        if (status != 0)
            throw std::runtime_error("not seeded");
        std::ofstream(file + ".seeded") << tasks;
    }
    return file;
}

QQuickView* viewOf(const QWidget* dialog) {
    for (QWindow* window : QGuiApplication::allWindows())
        if (auto* view = qobject_cast<QQuickView*>(window); view && dialog && view->parent() == dialog->windowHandle())
            return view->isExposed() && view->rootObject() ? view : nullptr;
    return nullptr;
}

void compare(const std::string& tasks, QQuickView& view, bench::Client& client) {
    MainWindow window(view);
    auto* catalogs = qobject_cast<CatalogTreeModel*>(view.rootContext()->contextProperty("theModel").value<QObject*>());
    const auto* first = static_cast<CatalogTreeNode*>(catalogs->nodeOf(catalogs->index(0, 0, catalogs->index(0, 0))));
    Stock stock(client, first->id());
    bench::Row(
        "click on a catalog to the painted page of " + tasks + " tasks / bare request and stock table", 1.3,
        [&] { return window.clickToPage(); }, [&] { return stock.requestToPage(); });
}

}  // namespace

/// `list_bench [TASKS]`.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_QUICK_CONTROLS_1_STYLE", "Base");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const std::string tasks = argc > 1 ? argv[1] : "1000000";
    const bench::Served served(seeded(tasks));
    bench::Client client(served.port(), "");
    client.login(kDept, kDept);

    support::FakeHost host;
    QWidget mainWindow;
    mainWindow.resize(1750, 1100);
    host.mainWindow = &mainWindow;
    host.web.address = L"127.0.0.1:" + std::to_wstring(served.port());
    host.web.sessionId = client.cookie().substr(client.cookie().find('=') + 1);
    host.project.deptId = BASETOOLS::ToWide(kDept);
    DISCLOSUREPACKAGE::CDisclosureManageMgr manager(BASECORE::NAMES::kDisclosure);
    host.managers[BASECORE::NAMES::kDisclosure] = &manager;

    DisclosureMgrProvider provider;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        QQuickView* view = viewOf(dialog);
        auto* list = view ? qobject_cast<TaskManagerViewModel*>(
                                view->rootContext()->contextProperty("theTaskModel").value<QObject*>())
                          : nullptr;
        if (!list || !list->taskModel())
            return;
        poll.stop();
        compare(tasks, *view, client);
        dialog->close();
    });
    poll.start(20);
    provider.ShowMainWindow();
    return 0;
}
