#include <csignal>

#include <QDateTime>
#include <QLabel>

#include "tests/end_to_end/Walks.h"

using namespace screen;

namespace {

const QString kTop = "全部";
const QString kHint = "请输入名称进行搜索";

void expectSame(const View& view, const QJsonObject& page, const QString& what) {
    const QString first = ServiceProbe::firstOf(page).value("name").toString();
    expect(!first.isEmpty(), "the service has tasks " + what);
    view.expectText(QString("共计%1条数据").arg(page.value("totalCount").toInt()));
    view.expectFirst("name", first);
}

void searchSortAndPage(View& view, ServiceProbe& service) {
    using Changes = QList<QPair<QString, QString>>;
    const Changes byName{{"orderKey", "taskName"}, {"orderType", "ASC"}};
    view.selectCatalog(kTop);
    expectSame(view, service.tasks(kTop), "as they are");
    picture("task-list");
    view.clickText("任务名称");
    view.search(kHint, "安全措施").key(Qt::Key_Return);
    expectSame(view, service.tasks(kTop, byName + Changes{{"keyword", "安全措施"}}), "with the words, by name");
    picture("task-search");
    view.retype({}).key(Qt::Key_Return);
    expectSame(view, service.tasks(kTop, byName), "by name");
    view.press(Pane::Tasks, "下一页");
    expectSame(view, service.tasks(kTop, byName + Changes{{"currentPage", "2"}}), "on the second page");
}

void changeDate(View& view, ServiceProbe& service) {
    QQuickItem* cell = view.cell([](QQuickItem* item) {
        return item->property("column") == "施工开始日期" && item->property("editable").toBool();
    });
    const QString id = View::taskOf(cell)->property("id").toString();
    const QDate before = QDate::fromString(cell->property("value").toString(), Qt::ISODate);
    view.click(cell);
    QTest::qWait(300);
    picture("task-calendar");
    view.key(Qt::Key_Right).key(Qt::Key_Return);
    const qint64 wanted = before.addDays(1).startOfDay().toMSecsSinceEpoch();
    expectSoon([&] { return service.task(id).value("constructionStartDateMills").toVariant().toLongLong() == wanted; },
               "the service has the next day as the start of construction");
    QTest::qWait(300);
}

void loseAndRegainTheNetwork(View& view, ServiceProbe& service) {
    const QString catalog = "机电安装";
    const QJsonObject page = service.tasks(catalog);
    view.search(kHint, "柱");  // and not applied
    makeNetwork(SIGUSR1);
    {
        const auto hasStood = [](QWidget* widget) {  // so that it is on the screen as a whole
            const auto* label = qobject_cast<QLabel*>(widget);
            return label && label->text() == "已等待 1 秒";
        };
        const DuringWait wait("list-loading", hasStood, [] { makeNetwork(SIGUSR2); });
        view.selectCatalog(QString("%1(%2)").arg(catalog).arg(page.value("totalCount").toInt()));
        view.expectBeginning("未能读取：");
    }
    expect(!view.text("共计0条数据"), "nobody says that there are none");
    view.expectBeginning("服务无法连接");
    picture("list-failed");

    makeNetwork(SIGHUP);
    view.expectFirst("name", ServiceProbe::firstOf(page).value("name").toString());  // it came back by itself
    expect(view.text("柱"), "what was typed is still there");
    picture("list-back");
    view.search(kHint, {});
}

}  // namespace

void makeNetwork(int how) {
    const auto proxy = static_cast<pid_t>(qEnvironmentVariableIntValue("SMOKE_PROXY_PID"));
    expect(proxy > 0 && ::kill(proxy, how) == 0, "the network can be cut");
}

void walkTaskList(View& view, ServiceProbe& service) {
    searchSortAndPage(view, service);
    changeDate(view, service);
    loseAndRegainTheNetwork(view, service);
}
