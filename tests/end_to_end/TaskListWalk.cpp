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

void filterSortAndPage(QQuickView* view, ServiceProbe& service) {
    const QString top = service.catalogId(QStringLiteral("全部"));
    selectCatalog(view, QStringLiteral("全部"));
    expectSame(view, service.tasks(top), "as they are");
    picture("task-list");

    support::click(support::findByText(view, QStringLiteral("任务名称")));
    QTest::qWait(600);  // two clicks within the double-click time are something else
    support::click(support::findByText(view, QStringLiteral("任务名称")));
    expectSame(view, service.tasks(top, {{"orderKey", "taskName"}, {"orderType", "DESC"}}), "by name backwards");

    const QString next = QStringLiteral("下一页");
    support::click(support::findItem(view->contentItem(), [&](QQuickItem* item) {
        return item->property("tooltipText") == next || item->objectName() == next;
    }));
    expectSame(view, service.tasks(top, {{"orderKey", "taskName"}, {"orderType", "DESC"}, {"currentPage", "2"}}),
               "on the second page");
    picture("task-page-2");

    support::click(searchField(view));
    support::retype(view, QStringLiteral("安全措施"));
    QTest::keyClick(view, Qt::Key_Return);
    QTest::qWait(300);
    QObject* list = view->rootContext()->contextProperty("theTaskModel").value<QObject*>();
    const QString page = list->property("current_page").toString();
    expectSame(
        view,
        service.tasks(
            top, {{"orderKey", "taskName"}, {"orderType", "DESC"}, {"currentPage", page}, {"keyword", "安全措施"}}),
        "with the words searched for");
    picture("task-search");
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

void rename(QQuickView* view, ServiceProbe& service) {
    QQuickItem* cell = rows::findCell(view, [](QQuickItem* item) {
        const QObject* task = rows::taskOf(item);
        return item->property("text") == task->property("name") && !task->property("released").toBool();
    });
    expect(cell != nullptr, "an unpublished task can be renamed");
    const QString id = rows::taskOf(cell)->property("id").toString();
    const QString name = cell->property("text").toString() + QStringLiteral("（改）");
    inDialog(
        QStringLiteral("修改任务名称"),
        [&] {
            QTest::mouseDClick(view, Qt::LeftButton, {}, support::centreOf(cell));
            QTest::qWait(100);
        },
        [&](QQuickView* window) {
            support::retype(window, name);
            picture("rename");
            QTest::keyClick(window, Qt::Key_Return);
        });
    expect(service.task(id).value("name") == name, "the service has the new name");
    expectText(view, name);
    picture("renamed");
}

}  // namespace

void walkTaskList(QQuickView* view, ServiceProbe& service) {
    filterSortAndPage(view, service);
    changeDate(view, service);
    rename(view, service);
    support::click(searchField(view));
    support::retype(view, QString());
    QTest::keyClick(view, Qt::Key_Return);
}
