#include <csignal>

#include <QApplication>
#include <QTest>
#include <QWidget>

#include "tests/end_to_end/Screen.h"
#include "tests/end_to_end/TaskRows.h"
#include "tests/end_to_end/Walks.h"
#include "tests/support/QuickPilot.h"

using namespace screen;

namespace {

/// Once the dialog of a long wait is painted, during which no timer runs: a picture, and the network breaks.
class BreakingWait : public QObject {
public:
    BreakingWait() { qApp->installEventFilter(this); }
    bool hasWaited() const { return m_hasWaited; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(watched) : nullptr;
        if (widget && !m_hasWaited && ++m_paints > 3 && widget->window()->windowTitle() == QStringLiteral("处理状态")) {
            m_hasWaited = true;
            pictureAtOnce("list-loading");
            makeNetwork(SIGUSR2);
        }
        return false;
    }

private:
    int m_paints = 0;
    bool m_hasWaited = false;
};

void expectBeginning(QQuickView* view, const QString& text) {
    expectSoon(
        [&] {
            return support::findItem(view->contentItem(), [&](QQuickItem* item) {
                return item->property("text").toString().startsWith(text);
            });
        },
        "the screen shows " + text);
}

}  // namespace

void makeNetwork(int how) {
    const auto proxy = static_cast<pid_t>(qEnvironmentVariableIntValue("SMOKE_PROXY_PID"));
    expect(proxy > 0 && ::kill(proxy, how) == 0, "the network can be cut");
}

void walkOutage(QQuickView* view, ServiceProbe& service) {
    const QString catalog = QStringLiteral("机电安装");
    const QString searched = QStringLiteral("柱");
    const QJsonObject page = service.tasks(service.catalogId(catalog));
    support::click(support::findByProperty(view, "placeholderText", QStringLiteral("请输入名称进行搜索")));
    support::retype(view, searched);  // and not applied

    makeNetwork(SIGUSR1);
    const BreakingWait wait;
    selectCatalog(view, QStringLiteral("%1(%2)").arg(catalog).arg(page.value("totalCount").toInt()));
    expectBeginning(view, QStringLiteral("未能读取："));
    expect(wait.hasWaited(), "the window went on being painted while it waited");
    expect(!support::findByText(view, QStringLiteral("共计0条数据")), "nobody says that there are none");
    expectBeginning(view, QStringLiteral("服务无法连接"));
    picture("list-failed");

    makeNetwork(SIGHUP);
    const QString first = page.value("result").toArray().first().toObject().value("name").toString();
    expectSoon([&] { return rows::firstTask(view) && rows::firstTask(view)->property("name") == first; },
               "the list came back by itself");
    expect(support::findByText(view, searched) != nullptr, "what was typed is still there");
    picture("list-back");
    support::click(support::findByProperty(view, "placeholderText", QStringLiteral("请输入名称进行搜索")));
    support::retype(view, QString());
}
