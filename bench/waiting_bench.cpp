#include <chrono>
#include <thread>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickView>
#include <QTimer>

#include "bench/Report.h"
#include "plugin/service/CDisclosureManageMgr.h"
#include "sdk/basetools/TextConversion.h"
#include "tests/support/FakeHost.h"
#include "tests/support/RawHttpServer.h"

namespace {

constexpr std::chrono::milliseconds kLooked{1500};

/// The longest time between two frames of a window that always wants another one.
class Gap : public QObject {
public:
    explicit Gap(QQuickView& view) {
        connect(&view, &QQuickWindow::frameSwapped, this, [this, &view] {
            if (m_since.isValid())
                m_longest = std::max(m_longest, m_since.nsecsElapsed() * 1e-9);
            m_since.start();
            ++m_frames;
            view.update();
        });
        view.update();
    }
    /// Half a minute where it was hardly painted at all: that is no gap of its own.
    double seconds() const { return m_frames < 10 ? 30 : m_longest; }

private:
    QElapsedTimer m_since;
    double m_longest = 0;
    int m_frames = 0;
};

double idle(QQuickView& view) {
    const Gap gap(view);
    QEventLoop loop;
    QTimer::singleShot(kLooked, &loop, &QEventLoop::quit);
    loop.exec();
    return gap.seconds();
}

double stalled(QQuickView& view, DISCLOSUREPACKAGE::IDisclosureManageMgr& manager) {
    const Gap gap(view);
    std::vector<DISCLOSUREPACKAGE::CatalogRecord> catalogs;
    if (!manager.ListCatalogs(catalogs, L"dept-1"))
        std::fprintf(stderr, "the stalled call failed\n");
    return gap.seconds();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QApplication app(argc, argv);
    support::RawHttpServer server;
    auto late = support::RawHttpServer::json(R"({"code":200,"result":[]})");
    late.delay = kLooked;
    server.then(late);
    support::FakeHost host;
    host.web.address = BASETOOLS::ToWide(server.address());
    DISCLOSUREPACKAGE::CDisclosureManageMgr manager(BASECORE::NAMES::kDisclosure);

    QQuickView view;
    QQmlComponent page(view.engine());
    page.setData(
        "import QtQuick 2.15\nRectangle { width: 800; height: 600; color: \"white\"; Grid { columns: 20\n"
        "Repeater { model: 400; Text { width: 40; text: index } } } }",
        QUrl("qrc:/page.qml"));
    view.setContent(QUrl("qrc:/page.qml"), &page, page.create());
    view.show();
    bench::Row(
        "longest gap of painting while a call is stalled / the same window idle", 2.0,
        [&] { return stalled(view, manager); }, [&] { return idle(view); }, 11);
    return 0;
}
