#include <QPushButton>
#include <QTreeWidget>

#include "tests/end_to_end/Walks.h"

using namespace screen;

namespace {

/// Opens the task of the message on top.
void openFirst(QWidget* dialog, const QJsonObject& message) {
    const auto* list = dialog->findChild<QTreeWidget*>();
    expectSoon([&] { return list && list->topLevelItemCount() > 0; }, "the messages are listed");
    const QTreeWidgetItem* first = list->topLevelItem(0);
    expect(first->text(1) == message.value("text").toString(), "the newest message stands on top");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(first).center());
    picture("messages");
    QWidget* button = findWidget([](QWidget* widget) {
        const auto* pressed = qobject_cast<QPushButton*>(widget);
        return pressed && pressed->text().startsWith("打开任务");
    });
    expect(button, "there is a button that opens the task");
    QTest::mouseClick(button, Qt::LeftButton);
}

}  // namespace

void walkReminders(View& view, ServiceProbe& service) {
    inDialog(
        "提醒", [&] { view.clickText("提醒"); },
        [&](View& remind) {
            picture("remind");
            remind.clickText("提醒已过期的未交底任务");
            remind.clickText("确定");
        });
    expect(service.pushConfig().value("isNotifyOverdue").toInt() == 1, "the service has the reminder settings");
}

void walkMessages(ServiceProbe& service) {
    expectSoon([&] { return service.messages().value("totalCount").toInt() > 0; }, "the service reminds");
    const QJsonObject before = service.messages();
    const QJsonObject message = ServiceProbe::firstOf(before);
    QWidget* bell = findWidget(
        [](QWidget* widget) { return widget->inherits("QToolButton") && widget->toolTip().startsWith("消息"); });
    expect(bell, "there is a bell");
    const auto openTask = [&] {
        inWidgets(
            "消息", [&] { QTest::mouseClick(bell, Qt::LeftButton); },
            [&](QWidget* dialog) { openFirst(dialog, message); });
    };
    inDialog("交底管理", openTask, [&](View& view) {
        view.expectFirst("id", message.value("taskId").toString());
        picture("message-task");
    });
    expect(service.messages().value("unreadCount").toInt() == before.value("unreadCount").toInt() - 1,
           "the message counts as read");
}
