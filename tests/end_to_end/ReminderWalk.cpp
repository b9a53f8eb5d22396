#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include "tests/end_to_end/Screen.h"
#include "tests/end_to_end/TaskRows.h"
#include "tests/end_to_end/Walks.h"

using namespace screen;

namespace {

QToolButton* bell() {
    const auto widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets)
        if (auto* button = qobject_cast<QToolButton*>(widget))
            if (button->isVisible() && button->toolTip().startsWith(QStringLiteral("消息")))
                return button;
    return nullptr;
}

/// Opens the task of the message on top.
void openFirst(QWidget* dialog, const QJsonObject& message) {
    const auto* list = dialog->findChild<QTreeWidget*>();
    expectSoon([&] { return list && list->topLevelItemCount() > 0; }, "the messages are listed");
    const QTreeWidgetItem* first = list->topLevelItem(0);
    expect(first->text(1) == message.value("text").toString(), "the newest message stands on top");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(first).center());
    picture("messages");
    const auto buttons = dialog->findChildren<QPushButton*>();
    for (QPushButton* button : buttons)
        if (button->text().startsWith(QStringLiteral("打开任务")))
            return QTest::mouseClick(button, Qt::LeftButton);
    expect(false, "there is a button that opens the task");
}

}  // namespace

void walkReminders(QQuickView* view, ServiceProbe& service) {
    inDialog(
        QStringLiteral("提醒"), [&] { clickText(view, QStringLiteral("提醒")); },
        [&](QQuickView* remind) {
            picture("remind");
            clickText(remind, QStringLiteral("提醒已过期的未交底任务"));
            clickText(remind, QStringLiteral("确定"));
        });
    expect(service.pushConfig().value("isNotifyOverdue").toInt() == 1, "the service has the reminder settings");
}

void walkMessages(ServiceProbe& service) {
    expectSoon([&] { return service.messages().value("totalCount").toInt() > 0; }, "the service reminds");
    const QJsonObject before = service.messages();
    const QJsonObject message = before.value("result").toArray().first().toObject();
    expect(bell() != nullptr, "there is a bell");
    inDialog(
        QStringLiteral("交底管理"),
        [&] {
            inWidgets(
                QStringLiteral("消息"), [] { QTest::mouseClick(bell(), Qt::LeftButton); },
                [&](QWidget* dialog) { openFirst(dialog, message); });
        },
        [&](QQuickView* view) {
            const auto isShown = [&] {
                const QObject* task = rows::firstTask(view);
                return task && task->property("id") == message.value("taskId").toString();
            };
            expectSoon(isShown, "the list shows the message's task");
            picture("message-task");
        });
    expect(service.messages().value("unreadCount").toInt() == before.value("unreadCount").toInt() - 1,
           "the message counts as read");
}
