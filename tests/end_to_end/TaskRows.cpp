#include "tests/end_to_end/TaskRows.h"

#include <QTest>

#include "tests/end_to_end/Screen.h"

namespace rows {
namespace {

constexpr int kTableBegins = 360;

/// The topmost cell that passes, to which the wheel has been tilted.
QQuickItem* inSight(QQuickView* view, const support::ItemTest& test) {
    QQuickItem* cell = nullptr;
    const auto isInSight = [&] {
        cell = findCell(view, test);
        if (!cell)
            return false;
        const QPoint centre = support::centreOf(cell);
        const bool isLeft = centre.x() < kTableBegins;
        if (!isLeft && centre.x() < view->width() - 20)
            return true;
        const QPointF place(view->width() * 0.6, centre.y());
        QWheelEvent wheel(place, view->mapToGlobal(place.toPoint()), {}, {isLeft ? 480 : -480, 0}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &wheel);
        return false;
    };
    screen::expectSoon(isInSight, "there is a task in sight");
    return cell;
}

}  // namespace

QQuickItem* findCell(QQuickView* view, const support::ItemTest& test) {
    QQuickItem* best = nullptr;
    const std::function<void(QQuickItem*)> walk = [&](QQuickItem* item) {
        if (!item->isVisible())
            return;
        if (taskOf(item) && test(item) && (!best || support::centreOf(item).y() < support::centreOf(best).y()))
            best = item;
        const auto children = item->childItems();
        for (QQuickItem* child : children)
            walk(child);
    };
    walk(view->contentItem());
    return best;
}

QObject* taskOf(QQuickItem* cell) {
    return cell->property("task").value<QObject*>();
}

QObject* firstTask(QQuickView* view) {
    QQuickItem* cell = findCell(view, [](QQuickItem*) { return true; });
    return cell ? taskOf(cell) : nullptr;
}

QString checkFirst(QQuickView* view) {
    support::click(inSight(view, [](QQuickItem* item) {
        return item->property("text").isValid() && item->property("text") == taskOf(item)->property("name");
    }));
    QTest::qWait(100);
    const QObject* task = firstTask(view);
    if (!task->property("selected").toBool())
        QTest::keyClick(view, Qt::Key_Space);
    screen::expect(task->property("selected").toBool(), "the space bar checks the row");
    return task->property("id").toString();
}

void clickEdit(QQuickView* view) {
    support::click(inSight(view, [](QQuickItem* item) {
        return item->property("iconSource").toString() == QStringLiteral("qrc:/ui/Images/edit.png");
    }));
}

}  // namespace rows
