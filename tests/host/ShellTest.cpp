#include <csignal>

#include <QDockWidget>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "host/managers/ClientConfigMgr.h"
#include "host/shell/EndSignals.h"
#include "host/shell/LoginDialog.h"
#include "sdk/basecore/IRestServWebMgr.h"
#include "sdk/packages/IAuthInfoMgr.h"
#include "sdk/packages/ICasMgr.h"
#include "sdk/packages/IServiceStateMgr.h"
#include "tests/host/Windows.h"

namespace {

using BASECORE::FRAME::LookupManager;

using support::showing;

class LoginBox : public testing::Test {
protected:
    LoginBox() { dialog.show(); }
    void press(const QString& server, const QString& user, const QString& password) {
        const auto fields = dialog.findChildren<QLineEdit*>();
        fields[0]->setText(server);
        fields[1]->setText(user);
        fields[2]->setText(password);
        QTest::mouseClick(showing<QPushButton>(dialog, "登录"), Qt::LeftButton);
    }

    support::TestPlatform platform;
    workbench::PlatformClient client{std::chrono::seconds(30)};
    workbench::SessionKeeper keeper{client};
    workbench::LoginDialog dialog{keeper, platform.server.address(), ""};
};

TEST_F(LoginBox, SaysInPlaceWhatIsWrongAndKeepsWhatWasTyped) {
    const QString server = platform.server.address();
    const std::tuple<QString, QString, QString, QString> cases[] = {
        {"", "demo", "demo", "请输入服务器地址"},        {"http://a:1", "demo", "demo", "请输入服务器地址"},
        {"a:99999", "demo", "demo", "请输入服务器地址"}, {"127.0.0.1:1/x", "demo", "demo", "请输入服务器地址"},
        {server, " ", "demo", "请输入用户名"},           {server, "demo", "", "请输入密码"},
        {server, "demo", "wrong", "用户名或密码不正确"}, {"127.0.0.1:1", "demo", "demo", "无法连接到服务 127.0.0.1:1"},
    };
    for (const auto& [address, user, password, error] : cases) {
        press(address, user, password);
        const QLabel* label = showing<QLabel>(dialog, error);
        ASSERT_NE(label, nullptr) << error.toStdString();
        EXPECT_TRUE(label->isVisible() && dialog.isVisible());
        EXPECT_EQ(dialog.findChildren<QLineEdit*>()[2]->text(), password);
    }
    press(server, " demo ", "demo");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.userName(), "demo");
}

class WholeWorkbench : public testing::Test {
protected:
    void start() {
        bench.reset();  // there is one core at a time
        bench = std::make_unique<workbench::Workbench>(options);
        ASSERT_TRUE(bench->logIn(why)) << why.toStdString();
        bench->start();
    }
    bool comesToShow(const QString& text) const {
        return support::comesTrue([&] { return shows(text); });
    }
    bool shows(const QString& text) const { return showing<QLabel>(bench->window(), text) != nullptr; }
    /// Logs in as that user once the dialog is there.
    static void typeIntoLogin(const QString& user) {
        QTimer::singleShot(0, qApp, [user] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            dialog->findChildren<QLineEdit*>()[1]->setText(user);
            dialog->findChildren<QLineEdit*>()[2]->setText("demo");
            QTest::keyClick(dialog, Qt::Key_Return);
        });
    }
    QComboBox* chooser() const { return bench->window().findChild<QComboBox*>(); }

    QTemporaryDir dir;
    support::TestPlatform platform;
    workbench::Options options = support::optionsFor(platform, BINARY_ROOT "/tests/plugins/Good", dir.path());
    QString why;
    std::unique_ptr<workbench::Workbench> bench;
};

TEST_F(WholeWorkbench, ComesUpWithCommandsProjectsAndUser) {
    options.command = "GOOD_Cmd";
    start();
    EXPECT_NE(showing<QToolButton>(bench->window(), "GOOD_Cmd"), nullptr);
    EXPECT_TRUE(shows("当前用户：张工"));
    EXPECT_TRUE(shows("第一项目部"));
    EXPECT_TRUE(comesToShow("服务正常"));
    const auto* log = bench->window().findChild<QPlainTextEdit*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return log->toPlainText().contains("command  run"); }));

    auto* rights = LookupManager<BASEPACKAGE::IAuthInfoMgr>(BASECORE::NAMES::kRights);
    auto* project = LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject);
    ASSERT_TRUE(rights && project && LookupManager<BASEPACKAGE::ICasMgr>(L"CENTRALAUTHENTICATIONSERVICE_MGR "));
    EXPECT_TRUE(rights->HasAuth(310201));
    EXPECT_EQ(chooser()->count(), 2);
    emit chooser()->activated(1);
    EXPECT_EQ(project->GetCurDeptId(), L"D2");
    EXPECT_EQ(chooser()->currentText(), "二号楼");
    EXPECT_FALSE(rights->HasAuth(310201)) << "rights follow the project";
    EXPECT_EQ(workbench::CClientConfigMgr(dir.path()).GetValue(workbench::CClientConfigMgr::kProject), L"2");
    platform.server.stop();
    emit chooser()->activated(0);
    EXPECT_TRUE(shows("无法连接到服务")) << "told at once";
}

TEST_F(WholeWorkbench, AnotherUserWhoLogsInBringsOwnRights) {
    start();
    auto* rights = LookupManager<BASEPACKAGE::IAuthInfoMgr>(BASECORE::NAMES::kRights);
    auto* rest = LookupManager<BASECORE::IRestServWebMgr>(BASECORE::NAMES::kRestService);
    ASSERT_TRUE(rights && rest);
    EXPECT_TRUE(rights->HasAuth(310201));
    rest->EndSession(BASECORE::NAMES::kServiceKey);
    platform.server.setHandler([this](const auto& request) {
        if (request.target.find("/rs/platform/rights") == 0)
            return support::result("[]");
        auto reply = platform.answer(request);
        if (const auto at = reply.body.find("张工"); at != std::string::npos)
            reply.body.replace(at, sizeof("张工") - 1, "李工");
        return reply;
    });
    typeIntoLogin("li");
    EXPECT_TRUE(rest->RenewSession(BASECORE::NAMES::kServiceKey, L"302"));
    EXPECT_TRUE(shows("当前用户：李工"));
    EXPECT_FALSE(rights->HasAuth(310201));
}

TEST_F(WholeWorkbench, AUserLogsOutAndIn) {
    support::Veto veto;
    start();
    EXPECT_TRUE(bench->window().isMaximized());
    EXPECT_FALSE(bench->window().findChild<QDockWidget*>()->isVisible()) << "the log is there on demand";
    auto* project = LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject);
    project->AddProjLoadObserver(&veto, 5);
    BASEUI::SetMessageBoxHandler([](const auto&, auto*, auto) { return BASEUI::MessageResult::Ok; });
    emit bench->window().logOutWanted();
    EXPECT_EQ(project->GetCurDeptId(), L"D1") << "a plug-in keeps it";
    BASEUI::SetMessageBoxHandler({});
    veto.holds = false;
    emit bench->window().logOutWanted();
    const auto requests = platform.server.requests();
    EXPECT_EQ(
        std::count_if(requests.begin(), requests.end(), [](const auto& r) { return r.target == "/rs/auth/logout"; }),
        1);
    EXPECT_TRUE(shows("未登录") && shows("没有打开的工程"));
    EXPECT_FALSE(chooser()->isEnabled());
    EXPECT_FALSE(showing<QToolButton>(bench->window(), "GOOD_Cmd")->isEnabled());
    typeIntoLogin("demo");
    emit bench->window().userChangeWanted();
    EXPECT_TRUE(shows("当前用户：张工") && shows("第一项目部"));
    bench.reset();
}

TEST_F(WholeWorkbench, TheBellRingsOverThePlugInsWindow) {
    start();
    QDialog modal(&bench->window());
    modal.setModal(true);
    modal.show();
    const QWidget* over = nullptr;
    QTimer::singleShot(1, &modal, [&] {
        auto* list = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(list, nullptr);
        over = list->parentWidget();
        QTest::keyClick(list, Qt::Key_M, Qt::ControlModifier);
        list->reject();
    });
    QTest::keyClick(&modal, Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(over, &modal);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), &modal) << "one list is enough";
}

TEST_F(WholeWorkbench, PlugInsLearnFromTheEventLoopWhetherTheServiceAnswers) {
    struct Observer final : BASEPACKAGE::IServiceStateObserver {
        void OnServiceStateChanged(bool reachable) override { told.push_back(reachable); }
        std::vector<bool> told;
    } observer, removed;
    start();
    auto* state = LookupManager<BASEPACKAGE::IServiceStateMgr>(BASECORE::NAMES::kServiceState);
    ASSERT_NE(state, nullptr);
    for (int i = 0; i < 2; ++i)
        state->AddObserver(&observer);
    state->AddObserver(&removed);
    state->RemoveObserver(&removed);
    EXPECT_TRUE(state->IsReachable() && state->GetReason().empty());
    platform.server.stop();
    emit bench->window().projectsWanted();
    EXPECT_FALSE(state->IsReachable());
    EXPECT_NE(state->GetReason(), L"");
    EXPECT_TRUE(observer.told.empty()) << "not from within the call";
    EXPECT_TRUE(support::comesTrue([&] { return observer.told.size() == 1; }));
    platform.server.restart();
    EXPECT_TRUE(support::comesTrue([&] { return observer.told.size() == 2; }));
    EXPECT_EQ(observer.told, (std::vector<bool>{false, true}));
    EXPECT_TRUE(removed.told.empty());
}

TEST_F(WholeWorkbench, AVetoPutsTheChooserBack) {
    support::Veto veto;
    start();
    auto* project = LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject);
    project->AddProjLoadObserver(&veto, 5);
    chooser()->setCurrentIndex(1);
    emit chooser()->activated(1);
    EXPECT_EQ(chooser()->currentIndex(), 0);
    EXPECT_EQ(project->GetCurDeptId(), L"D1");
    bench.reset();  // before the observer that it knows
}

TEST_F(WholeWorkbench, TheWatchTellsWhetherTheServiceAnswers) {
    using support::ScriptedServer;
    workbench::ServiceWatch watch(std::chrono::milliseconds(20), std::chrono::milliseconds(200));
    std::pair<bool, QString> last;
    QObject::connect(&watch, &workbench::ServiceWatch::told, [&](bool alive, const QString& text) {
        last = {alive, text};
    });
    const auto comesToTell = [&](bool alive, const QString& text) {
        return support::comesTrue([&] { return last.first == alive && last.second.contains(text); });
    };
    watch.watch(platform.server.address());
    EXPECT_TRUE(comesToTell(true, "服务正常"));
    platform.server.setHandler([](const auto&) { return ScriptedServer::Reply{200, "<html>", "text/html"}; });
    EXPECT_TRUE(comesToTell(false, "服务应答异常"));
    platform.server.setHandler(
        [](const auto&) { return ScriptedServer::Reply{200, "", "", {}, 0, ScriptedServer::Fault::NeverAnswers}; });
    EXPECT_TRUE(comesToTell(false, "没有按时应答"));
    platform.server.stop();
    EXPECT_TRUE(comesToTell(false, "服务无法连接"));
    platform.server.setHandler([this](const auto& request) { return platform.answer(request); });
    platform.server.restart();
    EXPECT_TRUE(comesToTell(true, "服务正常"));
}

TEST_F(WholeWorkbench, ComesUpWithoutProjectsWhenTheServiceIsInTrouble) {
    for (const auto& reply :
         {support::ScriptedServer::Reply{500, ""}, support::ScriptedServer::Reply{200, "<html>", "text/html"},
          support::result("{}"), support::result("[]")}) {
        platform.server.setHandler([&](const auto& request) {
            return request.target == "/rs/platform/projects" ? reply : platform.answer(request);
        });
        start();
        EXPECT_TRUE(shows("没有打开的工程"));
        EXPECT_FALSE(chooser()->isEnabled());
        platform.server.setHandler([this](const auto& request) { return platform.answer(request); });
        emit bench->window().projectsWanted();
        EXPECT_TRUE(shows("第一项目部"));
        EXPECT_EQ(chooser()->currentText(), "一号楼");
    }
}

TEST_F(WholeWorkbench, RefusedWordsOfAScriptAreAnErrorAndTypedOnesAreRememberedWithoutThePassword) {
    options.password = "wrong";
    EXPECT_FALSE(workbench::Workbench(options).logIn(why));
    EXPECT_EQ(why, "用户名或密码不正确");

    options.password.clear();
    workbench::Workbench asking(options);
    typeIntoLogin("demo");
    EXPECT_TRUE(asking.logIn(why));
    QFile file(dir.filePath("workbench.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray stored = file.readAll();
    EXPECT_TRUE(stored.contains("User=demo") && stored.contains(platform.server.address().toUtf8()));
    EXPECT_EQ(stored.count("demo"), 1);
}

TEST(Ending, ASignalEndsTheWindowsThatAreOpenAndTheNextLoop) {
    const workbench::EndSignals handlers;
    QDialog modal;
    QTimer::singleShot(0, [] { std::raise(SIGTERM); });
    QTimer::singleShot(10000, &modal, [&modal] { modal.done(-1); });
    EXPECT_NE(modal.exec(), -1);
    QTimer::singleShot(10000, &modal, [] { QCoreApplication::exit(-1); });
    EXPECT_EQ(QCoreApplication::exec(), 0) << "it had not begun when the signal came";
}

}  // namespace
