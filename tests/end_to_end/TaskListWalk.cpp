#include <QDateTime>
#include <QQmlContext>
#include <QTest>

#include "tests/end_to_end/Screen.h"
#include "tests/end_to_end/TaskRows.h"
#include "tests/end_to_end/Walks.h"
#include "tests/support/QuickPilot.h"

using namespace screen;

namespace {

/// The text of the first row's name.
QString firstName(QQuickView* view) {
    const QObject* task = rows::firstTask(view);
    return task ? task->property("name").toString() : QString();
}

void expectSame(QQuickView* view, const QJsonObject& page, const QString& what) {
    const QString total = QStringLiteral("共计%1条数据").arg(page.value("totalCount").toInt());
    const QString first = page.value("result").toArray().first().toObject().value("name").toString();
    expect(!first.isEmpty(), "the service has tasks " + what);
    expectSoon([&] { return support::findByText(view, total) && firstName(view) == first; },
               QStringLiteral("the list shows %1, first %2, %3").arg(total, first, what));
}

QQuickItem* searchField(QQuickView* view) {
    QQuickItem* field = support::findByProperty(view, "placeholderText", QStringLiteral("请输入名称进行搜索"));
    expect(field != nullptr, "there is a search field");
    return field;
}

void searchSortAndPage(QQuickView* view, ServiceProbe& service) {
    const QString top = service.catalogId(QStringLiteral("全部"));
    selectCatalog(view, QStringLiteral("全部"));
    expectSame(view, service.tasks(top), "as they are");
    picture("task-list");
    support::click(support::findByText(view, QStringLiteral("任务名称")));
    support::click(searchField(view));
    support::retype(view, QStringLiteral("安全措施"));
    QTest::keyClick(view, Qt::Key_Return);
    expectSame(view, service.tasks(top, {{"orderKey", "taskName"}, {"orderType", "ASC"}, {"keyword", "安全措施"}}),
               "with the words searched for, by name");
    picture("task-search");
    support::retype(view, QString());
    QTest::keyClick(view, Qt::Key_Return);
    expectSame(view, service.tasks(top, {{"orderKey", "taskName"}, {"orderType", "ASC"}}), "by name");
    support::click(support::findByProperty(view, "tooltipText", QStringLiteral("下一页")));
    expectSame(view, service.tasks(top, {{"orderKey", "taskName"}, {"orderType", "ASC"}, {"currentPage", "2"}}),
               "on the second page");
}

void changeDate(QQuickView* view, ServiceProbe& service) {
    QQuickItem* cell = rows::findCell(view, [](QQuickItem* item) {
        return item->property("column") == QStringLiteral("施工开始日期") && item->property("editable").toBool();
    });
    expect(cell != nullptr, "the date of an unpublished task can be changed");
    const QString id = rows::taskOf(cell)->property("id").toString();
    const QDate before = QDate::fromString(cell->property("value").toString(), Qt::ISODate);
    support::click(cell);
    QTest::qWait(300);
    picture("task-calendar");
    QTest::keyClick(view, Qt::Key_Right);
    QTest::keyClick(view, Qt::Key_Return);
    const qint64 wanted = before.addDays(1).startOfDay().toMSecsSinceEpoch();
    expectSoon([&] { return service.task(id).value("constructionStartDateMills").toVariant().toLongLong() == wanted; },
               "the service has the next day as the start of construction");
    QTest::qWait(300);
}

}  // namespace

void walkTaskList(QQuickView* view, ServiceProbe& service) {
    searchSortAndPage(view, service);
    changeDate(view, service);
}
