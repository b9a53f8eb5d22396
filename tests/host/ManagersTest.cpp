#include <future>
#include <thread>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>

#include "host/managers/AuthInfoMgr.h"
#include "host/managers/ClientConfigMgr.h"
#include "host/managers/CurProjectMgr.h"
#include "host/managers/OrgDeptMgr.h"
#include "host/managers/ProgressDialog.h"
#include "host/managers/ProjectDataMgr.h"
#include "host/platform/SessionKeeper.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/baseui/Waiting.h"
#include "tests/host/TestPlatform.h"

namespace {

using BASETOOLS::CAuthCodeTool;

class SharedData : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(workbench::SessionKeeper(client).logIn(platform.server.address(), "demo", "demo").ok());
    }
    void openProject(const wchar_t* deptId) {
        PROJECTPACKAGE::ProjectRecord record;
        record.deptId = deptId;
        currentProject.open(record);
    }
    std::size_t requests() const { return platform.server.requests().size(); }

    support::TestPlatform platform;
    workbench::PlatformClient client{std::chrono::seconds(30)};
    workbench::PlatformData data{client};
    workbench::CCurProjectMgr currentProject;
    workbench::CAuthInfoMgr rights{data, currentProject};
};

TEST_F(SharedData, RightsAreTheUsersInTheCurrentDepartment) {
    const int editCatalogs = CAuthCodeTool::GetAuthCode(CAuthCodeTool::kEditCatalogs);
    EXPECT_FALSE(rights.HasAuth(editCatalogs)) << "no project is open";
    openProject(L"D1");
    EXPECT_TRUE(rights.HasAuth(editCatalogs));
    EXPECT_FALSE(rights.HasAuth(CAuthCodeTool::GetAuthCode(CAuthCodeTool::kDeleteTasks)));
    EXPECT_FALSE(rights.HasAuth(CAuthCodeTool::kUnknown));
    EXPECT_EQ(requests(), 2U) << "the login and one question";
    openProject(L"D2");
    EXPECT_FALSE(rights.HasAuth(editCatalogs));
}

TEST_F(SharedData, RightsThatCannotBeReadAreNotHeldAndNotAskedForInARow) {
    openProject(L"D1");
    platform.server.setHandler([](const auto&) { return support::result(R"({"all":true})"); });
    for (int code : {310201, 310202, 310203})
        EXPECT_FALSE(rights.HasAuth(code));
    EXPECT_EQ(requests(), 2U);
    platform.server.setHandler([this](const auto& request) { return platform.answer(request); });
    rights.forget();
    EXPECT_TRUE(rights.HasAuth(CAuthCodeTool::GetAuthCode(CAuthCodeTool::kEditCatalogs)));
}

TEST_F(SharedData, DepartmentsPeopleAndProjectsAreReadOnce) {
    workbench::COrgDeptMgr departments(data);
    workbench::CProjectDataMgr projects(data);
    std::wstring name = L"before";
    EXPECT_TRUE(departments.GetDeptName(name, L"D11"));
    EXPECT_EQ(name, L"钢筋班");
    EXPECT_TRUE(departments.GetDeptName(name, L"D11"));
    EXPECT_EQ(requests(), 2U);
    EXPECT_FALSE(departments.GetDeptName(name, L"D3"));
    EXPECT_EQ(name, L"钢筋班");
    std::vector<BASEPACKAGE::UserRecord> users;
    EXPECT_TRUE(departments.GetUsers(users, L"D1"));
    ASSERT_EQ(users.size(), 1U);
    EXPECT_EQ(users.front().realName, L"张工");
    EXPECT_TRUE(projects.GetProjectName(name, 2));
    EXPECT_EQ(name, L"二号楼");
    EXPECT_FALSE(projects.GetProjectName(name, 3));

    platform.server.stop();
    departments.forget();
    EXPECT_TRUE(projects.GetProjectName(name, 1));
    EXPECT_FALSE(departments.GetUsers(users, L"D1"));
    EXPECT_EQ(users.size(), 1U) << "what was there stays";
}

TEST(ClientConfig, KeepsTextsAcrossRunsAndSaysWhenItCannot) {
    const QTemporaryDir dir;
    const std::pair<const wchar_t*, const wchar_t*> entries[] = {
        {L"ConnectBimViewSearchHistory", L"塔楼,\"一,二\"; @x %20\n末行"}, {L"组/子 组=1", L"𠮷"}, {L"empty", L""}};
    for (const auto& [key, value] : entries)
        EXPECT_TRUE(workbench::CClientConfigMgr(dir.path()).SetValue(key, value));
    for (const auto& [key, value] : entries)
        EXPECT_EQ(workbench::CClientConfigMgr(dir.path()).GetValue(key), value);
    EXPECT_EQ(workbench::CClientConfigMgr(dir.path()).GetValue(L"none"), L"");

    QFile inTheWay(dir.filePath("file"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_FALSE(workbench::CClientConfigMgr(dir.filePath("file")).SetValue(L"a", L"b"));
}

TEST(ProgressDialog, IsPaintedAtOnceWithoutLettingTimersThrough) {
    workbench::ProgressDialog progress;
    bool fired = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { fired = true; });
    timer.start(1);
    {
        const BIMScrollBar::ProgressScope scope(L"处理状态", L"处理中，请稍后...");
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), "处理状态");
        EXPECT_TRUE(dialog->windowHandle()->isExposed());
        EXPECT_FALSE(fired);
        QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog->isVisible());
        progress.ShowProgressDialog(L"处理状态", L"正在上传资料，请稍后...");
        EXPECT_EQ(QApplication::activeModalWidget(), dialog);
    }
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(ProgressDialog, ComesUpForAWaitWithItsButtonAndLeavesTheMiddleOfItsOwnerFree) {
    struct Eye : QObject {
        Eye() { qApp->installEventFilter(this); }
        bool eventFilter(QObject* watched, QEvent* event) override {
            auto* window = qobject_cast<QDialog*>(watched);
            if (window && event->type() == QEvent::Show) {
                offersCancel = window->findChild<QPushButton*>()->isVisibleTo(window);
                place = window->geometry();
            }
            return false;
        }
        bool offersCancel = false;
        QRect place;
    };
    const workbench::ProgressDialog progress;
    QWidget owner;
    owner.setGeometry(0, 0, 700, 600);
    owner.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&owner));
    const Eye eye;
    const auto wait =
        std::async(std::launch::async, [] { std::this_thread::sleep_for(std::chrono::milliseconds(50)); });
    EXPECT_TRUE(BASEUI::Wait(wait, {.canCancel = true, .dialogAfter = std::chrono::milliseconds(0)}));
    EXPECT_TRUE(eye.offersCancel);
    EXPECT_TRUE(eye.place.isValid() && !eye.place.contains(owner.geometry().center()));
}

}  // namespace
