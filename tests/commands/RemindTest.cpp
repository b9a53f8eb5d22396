#include "commands/DisclosureManage/ui/task/RemindWnd.h"
#include "tests/commands/TaskWindow.h"

namespace {

class Remind : public testing::Test {
protected:
    /// Opens the dialog, does `steps` and returns the calls joined by " | "; "open" when it is still open.
    std::string run(const ModalWindow::Steps& steps) {
        std::string open;
        service.calls.clear();
        ModalWindow::run([] { CRemindWnd::edit(); },
                         [&](ModalWindow& window) {
                             steps(window);
                             open = window.dialog()->isVisible() ? " | open" : "";
                         });
        return service.takeCalls() + open;
    }
    static void ok(ModalWindow& window) { window.click("确定"); }

    support::ScreenHost host;
    support::FakeDisclosureMgr& service = host.manager;
};

}  // namespace

TEST_F(Remind, FirstSavesThenUpdatesAndIsQuietWithoutAChange) {
    service.refused = L"save settings";
    EXPECT_EQ(run([](ModalWindow& window) {
                  EXPECT_EQ(window.dialog()->minimumSize(), QSize(320, 220));
                  ok(window);
              }),
              "settings of dept | save settings | open");
    service.refused.clear();
    EXPECT_EQ(run([&](ModalWindow& window) {
                  window.key(Qt::Key_Space);
                  QQuickItem* day = window.text("1");
                  window.fill(day, "").click("确定");
                  EXPECT_EQ(host.told(), "请输入提前提醒的天数") << "nothing is not 0";
                  day->forceActiveFocus();
                  window.type("45a6");
                  EXPECT_EQ(day->property("text"), "4") << "up to 30, digits only";
                  window.type("x.-").key(Qt::Key_Home).type("+");
                  EXPECT_EQ(day->property("text"), "4") << "no sign either";
                  ok(window);
              }),
              "settings of dept | save settings");
    const auto& stored = service.config;
    EXPECT_EQ(stored.id.size(), 36u);
    EXPECT_EQ(stored.deptId, L"dept");
    EXPECT_TRUE(stored.isNotifyAdvance && !stored.isNotifyOverdue);
    EXPECT_EQ(stored.daysNotifyAdvance, 4);
    EXPECT_EQ(stored.advanceNotifyFrequency, 1);

    const std::wstring id = stored.id;
    EXPECT_EQ(run(ok), "settings of dept");
    service.refused = L"update";
    const auto change = [](ModalWindow& window) {
        window.click("提醒已过期的未交底任务");
        window.find("currentText", "提醒一次")->forceActiveFocus();  // the lower of the two lists comes first
        window.key(Qt::Key_Down).click("确定");
    };
    EXPECT_EQ(run(change), "settings of dept | update settings | open");
    service.refused.clear();
    EXPECT_EQ(run([&](ModalWindow& window) {
                  QObject* model = window.context("remindModel");
                  change(window);
                  QMetaObject::invokeMethod(model, "onClickOk");  // a second click
              }),
              "settings of dept | update settings");
    EXPECT_EQ(stored.id, id);
    EXPECT_TRUE(stored.isNotifyOverdue);
    EXPECT_EQ(stored.overdueNotifyFrequency, 2);
    EXPECT_EQ(stored.advanceNotifyFrequency, 1);
}

TEST_F(Remind, FrequenciesThatWereNeverSetShowTheFirstChoice) {
    service.config.id = L"stored";
    service.config.daysNotifyAdvance = 30;
    service.config.advanceNotifyFrequency = -3;
    EXPECT_EQ(run([](ModalWindow& window) {
                  EXPECT_TRUE(window.text("30"));
                  EXPECT_TRUE(window.find("currentText", "提醒一次"));
                  ok(window);
              }),
              "settings of dept");
}
