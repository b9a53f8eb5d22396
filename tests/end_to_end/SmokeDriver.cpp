// A plug-in that uses the workbench as a person would: it runs the command, walks the screens, saves a picture of each
// and compares every change with what the service then says. The first difference ends the program with status 1.

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "sdk/basecore/MgrObject.h"
#include "sdk/basecore/PlugIn.h"
#include "tests/end_to_end/Walks.h"

namespace {

class SmokeDriver final : public BASECORE::FRAME::CMgrObject {
public:
    SmokeDriver() : CMgrObject(L"SmokeDriver"), m_service(qEnvironmentVariable("SMOKE_SERVICE")) {}

    void Startup() override {
        QTimer::singleShot(1, qApp, [this] { walk(); });  // a timer: what is posted comes through a wait
    }

private:
    void walk() {
        const auto find = [] {
            return screen::findWidget([](QWidget* widget) {
                const auto* button = qobject_cast<QToolButton*>(widget);
                return button && button->text() == "技术交底";
            });
        };
        screen::expectSoon([&] { return find() != nullptr; }, "the command's button shows");
        QTest::qWait(500);  // the status line asks the service once
        screen::picture("workbench");
        screen::inDialog(
            "交底管理", [&] { QTest::mouseClick(find(), Qt::LeftButton); },
            [this](screen::View& view) {
                screen::picture("main-window");
                walkCatalogs(view, m_service);
                walkTaskList(view, m_service);
                walkTaskLife(view, m_service);
                walkDocuments(view, m_service);
                walkReminders(view, m_service);
            });
        walkDocumentPage();
        walkMessages(m_service);
        std::puts("smoke: all is as it should be");
        qApp->closeAllWindows();
        qApp->quit();
    }

    ServiceProbe m_service;
};

}  // namespace

PLUGIN_EXPORT void GetCommands(BASECORE::PLUGIN::CommandList&) {}

PLUGIN_EXPORT void GetManagers(BASECORE::PLUGIN::ManagerList& managers) {
    managers.push_back(new SmokeDriver);
}
