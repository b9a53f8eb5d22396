#include <gtest/gtest.h>

#include <QDialog>
#include <QQuickItem>

#include "commands/DisclosureManage/ui/task/RemindWnd.h"
#include "tests/commands/FakeEditor.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/QuickPilot.h"
#include "tests/support/ScreenHost.h"

using support::ModalWindow;

namespace {

class Remind : public testing::Test {
protected:
    Remind() { host.core.managers[BASECORE::NAMES::kDisclosure] = &service; }
    /// Opens the dialog, does `steps` and returns the calls joined by " | "; "open" when it is still open.
    std::wstring run(const ModalWindow::Steps& steps) {
        service.calls.clear();
        std::wstring calls;
        ModalWindow::run([] { CRemindWnd::edit(); },
                         [&](ModalWindow& window) {
                             steps(window);
                             if (window.dialog()->isVisible())
                                 calls = L" | open";
                         });
        for (auto call = service.calls.rbegin(); call != service.calls.rend(); ++call)
            calls = (call + 1 == service.calls.rend() ? L"" : L" | ") + *call + calls;
        return calls;
    }
    static void ok(ModalWindow& window) { window.click(window.text("确定")); }

    support::ScreenHost host;
    FakeEditorService service;
};

}  // namespace

TEST_F(Remind, FirstSavesThenUpdatesAndIsQuietWithoutAChange) {
    service.refused = L"save settings";
    EXPECT_EQ(run([](ModalWindow& window) {
                  EXPECT_EQ(window.dialog()->minimumSize(), QSize(320, 220));
                  ok(window);
              }),
              L"settings of dept | save settings | open");
    service.refused.clear();
    EXPECT_EQ(run([&](ModalWindow& window) {
                  window.key(Qt::Key_Space);
                  auto* day = window.find("text", "1");
                  day->forceActiveFocus();
                  window.key(Qt::Key_A, Qt::ControlModifier);
                  window.key(Qt::Key_Delete);
                  ok(window);
                  EXPECT_EQ(host.messages, QStringList{"请输入提前提醒的天数"}) << "nothing is not 0";
                  day->forceActiveFocus();
                  window.type("45a6");
                  EXPECT_EQ(day->property("text"), "4") << "up to 30, digits only";
                  window.type("x.-");
                  window.key(Qt::Key_Home);
                  window.type("+");
                  EXPECT_EQ(day->property("text"), "4") << "no sign either";
                  ok(window);
              }),
              L"settings of dept | save settings");
    EXPECT_EQ(service.config.id.size(), 36u);
    EXPECT_EQ(service.config.deptId, L"dept");
    EXPECT_TRUE(service.config.isNotifyAdvance);
    EXPECT_EQ(service.config.daysNotifyAdvance, 4);
    EXPECT_EQ(service.config.advanceNotifyFrequency, 1);
    EXPECT_FALSE(service.config.isNotifyOverdue);

    const std::wstring id = service.config.id;
    EXPECT_EQ(run(ok), L"settings of dept");
    service.refused = L"update";
    const auto change = [](ModalWindow& window) {
        window.click(window.text("提醒已过期的未交底任务"));
        // The lower of the two lists comes first.
        support::findItem(window.view()->contentItem(), [](QQuickItem* item) {
            return item->property("currentText") == "提醒一次";
        })->forceActiveFocus();
        window.key(Qt::Key_Down);
        ok(window);
    };
    EXPECT_EQ(run(change), L"settings of dept | update settings | open");
    service.refused.clear();
    EXPECT_EQ(run([&](ModalWindow& window) {
                  QObject* model = window.context("remindModel");
                  change(window);
                  QMetaObject::invokeMethod(model, "onClickOk");  // a second click
              }),
              L"settings of dept | update settings");
    EXPECT_EQ(service.config.id, id);
    EXPECT_TRUE(service.config.isNotifyOverdue);
    EXPECT_EQ(service.config.overdueNotifyFrequency, 2);
    EXPECT_EQ(service.config.advanceNotifyFrequency, 1);
}

TEST_F(Remind, FrequenciesThatWereNeverSetShowTheFirstChoice) {
    service.config.id = L"stored";
    service.config.daysNotifyAdvance = 30;
    service.config.advanceNotifyFrequency = -3;
    EXPECT_EQ(run([](ModalWindow& window) {
                  EXPECT_TRUE(window.find("text", "30"));
                  EXPECT_TRUE(window.find("currentText", "提醒一次"));
                  ok(window);
              }),
              L"settings of dept");
}
