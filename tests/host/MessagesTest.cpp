
#include <QTreeWidget>

#include "host/platform/Inbox.h"
#include "host/platform/UnreadWatch.h"
#include "host/shell/MessageDialog.h"
#include "sdk/basecore/CmdObject.h"
#include "sdk/packages/disclosure/Command.h"
#include "tests/host/Windows.h"

namespace {

using support::ScriptedServer;
using workbench::Message;
using workbench::MessageDialog;

using support::comesTrue;

/// A platform with messages "m0" (the newest), "m1", ...: the even ones unread.
class Messages : public testing::Test {
protected:
    Messages() {
        platform.server.setHandler([this](const auto& request) { return answer(request); });
        BASEUI::SetMessageBoxHandler([this](const std::wstring& text, QWidget*, BASEUI::MessageButtons buttons) {
            boxes << QString::fromStdWString(text) + (buttons == BASEUI::MessageButtons::OkCancel ? "?" : "");
            return boxAnswer;
        });
    }
    ~Messages() override { BASEUI::SetMessageBoxHandler({}); }

    ScriptedServer::Reply answer(const ScriptedServer::Request& request) {
        if (const std::lock_guard lock(mutex);
            request.target == "/rs/platform/messages/unread" && !unreadReply.body.empty())
            return unreadReply;
        auto reply = platform.answer(request);
        if (reply.status != 200)
            return reply;
        if (request.target == "/rs/platform/messages/unread")
            return support::result(R"({"unreadCount":)" + std::to_string(unread) + "}");
        if (request.target == "/rs/platform/messages/read")
            return support::result(R"({"resultState":true})");
        if (request.target.rfind("/rs/platform/messages?", 0) == 0)
            return broken ? support::refusal(500, 500, "") : page(request.target);
        return reply;
    }

    void answerUnread(const ScriptedServer::Reply& reply) {
        const std::lock_guard lock(mutex);
        unreadReply = reply;
    }

    ScriptedServer::Reply page(const std::string& target) const {
        const int number = std::stoi(target.substr(target.find("currentPage=") + 12));
        std::string list;
        for (int i = (number - 1) * 20; i < std::min(count.load(), number * 20); ++i)
            list += (list.empty() ? "" : ",") + message(i);
        return support::result(R"({"totalCount":)" + std::to_string(count) + R"(,"unreadCount":)" +
                               std::to_string(unread) + R"(,"result":[)" + list + "]}");
    }
    /// Its place and its id differ by what came later.
    std::string message(int place) const {
        const int i = place - newcomers;
        const qint64 time =
            i == 0 ? today.toMSecsSinceEpoch() : QDateTime(QDate(2026, 2, 3), {8, 30}).toMSecsSinceEpoch();
        const std::string number = std::to_string(i);
        const std::string dept = i == 1 ? "D2" : i == 3 ? "D9" : "D1";
        return R"({"id":"m)" + number + R"(","deptId":")" + dept + R"(","kind":)" + (i % 2 ? kind.load() : "1") +
               R"(,"text":"交底任务“)" + number + R"(”","taskId":)" + (i == 2 ? "\"\"" : "\"t" + number + "\"") +
               R"(,"taskName":null,"catalogId":null,"createdDateMills":)" + std::to_string(time) + R"(,"isRead":)" +
               (i % 2 ? "true" : "false") + "}";
    }

    std::vector<std::string> asked(const std::string& target) const {
        std::vector<std::string> bodies;
        for (const auto& request : platform.server.requests())
            if (request.target == target)
                bodies.push_back(request.body);
        return bodies;
    }
    std::size_t polls() const { return asked("/rs/platform/messages/unread").size(); }
    std::vector<std::string> marked() const { return asked("/rs/platform/messages/read"); }

    const QDateTime today{QDate::currentDate(), QTime(9, 5)};
    std::atomic<int> count = 3;
    std::atomic<int> newcomers = 0;
    std::atomic<int> unread = 2;
    std::atomic<bool> broken = false;
    std::atomic<const char*> kind = "2";  // of the odd ones
    std::mutex mutex;                     // of what the server's thread reads
    ScriptedServer::Reply unreadReply{200, ""};
    QStringList boxes;
    BASEUI::MessageResult boxAnswer = BASEUI::MessageResult::Ok;
    support::TestPlatform platform;
    workbench::PlatformClient client{std::chrono::seconds(30)};
    workbench::SessionKeeper keeper{client};
};

class Unread : public Messages {
protected:
    Unread() {
        EXPECT_TRUE(keeper.logIn(platform.server.address(), "demo", "demo").ok());
        client.setRecovery([this](const QString&) {
            ++renewals;
            return true;
        });
        client.setTroubleListener([this](const QString&) { ++renewals; });
        QObject::connect(&watch, &workbench::UnreadWatch::counted, [this](int number) { counts.push_back(number); });
    }

    int renewals = 0;
    std::vector<int> counts;
    workbench::UnreadWatch watch{client, std::chrono::milliseconds(20), std::chrono::milliseconds(1000)};
};

TEST_F(Unread, IsAskedForWhileTheServiceIsThere) {
    watch.restart();
    EXPECT_EQ(polls(), 0U) << "nobody knows yet whether the service is there";
    watch.setReachable(true);
    EXPECT_TRUE(comesTrue([&] { return counts.size() >= 2; }));
    EXPECT_EQ(counts.front(), 2);
    watch.setReachable(false);
    QTest::qWait(100);
    const std::size_t before = polls();
    QTest::qWait(100);
    EXPECT_EQ(polls(), before);
    watch.setReachable(true);
    EXPECT_TRUE(comesTrue([&] { return polls() > before; }));
}

TEST_F(Unread, LeavesTheSessionToItsEndWhenNobodyUsesTheWorkbench) {
    watch.restart();
    watch.setReachable(true);
    ASSERT_TRUE(comesTrue([&] { return !counts.empty(); }));
    QTest::qWait(1200);
    const std::size_t before = polls();
    QTest::qWait(100);
    EXPECT_EQ(polls(), before);
    QWidget window;
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_TRUE(comesTrue([&] { return polls() > before; }));
}

TEST_F(Unread, TroubleIsSilentAndLeftToOthers) {
    for (const auto& reply : {support::sessionExpired(), ScriptedServer::Reply{500, "x"}, support::result("{}"),
                              support::result(R"({"unreadCount":-1})"), support::refusal(404, 404, "x")}) {
        auto spaced = reply;
        spaced.body += " ";
        answerUnread(spaced);
        watch.restart();
        watch.setReachable(true);
        const std::size_t before = polls();
        EXPECT_TRUE(comesTrue([&] { return polls() > before + 2; })) << "it goes on asking";
    }
    EXPECT_EQ(renewals, 0);
    EXPECT_TRUE(counts.empty());
    answerUnread({200, ""});
    EXPECT_TRUE(comesTrue([&] { return !counts.empty(); }));
}

TEST_F(Unread, AnswersToAnEarlierUserOrToNobodyAreDropped) {
    auto late = support::result(R"({"unreadCount":7})");
    late.delayMs = 300;
    answerUnread(late);
    watch.restart();
    watch.setReachable(true);
    ASSERT_TRUE(comesTrue([&] { return polls() == 1; }));
    answerUnread({200, ""});
    watch.restart();
    EXPECT_TRUE(comesTrue([&] { return counts.size() > 1; }));
    QTest::qWait(400);
    EXPECT_EQ(std::count(counts.begin(), counts.end(), 7), 0);

    auto gone = std::make_unique<QObject>();
    bool told = false;
    client.getLater("/rs/platform/current_user", gone.get(), [&](const auto&) { told = true; });
    gone.reset();
    client.get("/rs/platform/current_user");
    QTest::qWait(50);
    EXPECT_FALSE(told);
}

/// The list, without a workbench around it.
class MessageList : public Messages {
protected:
    MessageList() {
        EXPECT_TRUE(keeper.logIn(platform.server.address(), "demo", "demo").ok());
        QObject::connect(&dialog, &MessageDialog::unreadChanged, [this](int number) { shownUnread = number; });
    }
    void open() {
        dialog.show();
        const auto* state = dialog.findChild<QLabel*>("state");
        ASSERT_TRUE(comesTrue([&] { return list()->topLevelItemCount() > 0 || !state->text().startsWith("正在"); }));
    }
    QTreeWidget* list() { return dialog.findChild<QTreeWidget*>(); }
    QPushButton* button(const QString& text) { return support::showing<QPushButton>(dialog, text); }
    void loadMore() { QTest::mouseClick(button("加载更多"), Qt::LeftButton); }
    QString cells(int row) {
        const auto* item = list()->topLevelItem(row);
        return item->text(0) + item->text(1) + item->text(2);
    }
    bool isBold(int row) { return list()->topLevelItem(row)->font(1).bold(); }
    QString label(const char* name) {
        const auto* found = dialog.findChild<QLabel*>(name);
        return found->isVisible() ? found->text() : QString();
    }

    int shownUnread = -1;
    QStringList prepared;
    bool isReady = true;
    QString why;
    workbench::Inbox inbox{client};
    MessageDialog dialog{inbox, [this](const Message& message, QString& reason) {
                             prepared << message.id;
                             reason = why;
                             return isReady;
                         }};
};

TEST_F(MessageList, ShowsWhatThereIs) {
    open();
    ASSERT_EQ(list()->topLevelItemCount(), 3);
    EXPECT_EQ(cells(0), "提前提醒交底任务“0”今天 09:05");
    EXPECT_EQ(cells(1), "过期提醒交底任务“1”2026-02-03");
    EXPECT_TRUE(isBold(0) && !isBold(1));
    EXPECT_EQ(list()->topLevelItem(0)->data(0, Qt::AccessibleTextRole), "未读，提前提醒");
    EXPECT_FALSE(button("加载更多")->isVisible());
    EXPECT_EQ(shownUnread, 2);
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(MessageList, ReadsPagesAsTheyAreWantedAndNoMessageTwice) {
    count = 45;
    open();
    EXPECT_EQ(list()->topLevelItemCount(), 20);
    newcomers = 20;  // as many as a page holds came meanwhile
    count = 65;
    loadMore();
    EXPECT_EQ(list()->topLevelItemCount(), 40);
    EXPECT_TRUE(cells(20).contains("“20”"));
    EXPECT_EQ(list()->currentItem(), list()->topLevelItem(20));
    broken = true;
    loadMore();
    EXPECT_EQ(list()->topLevelItemCount(), 40);
    EXPECT_TRUE(label("notice").contains("500"));
    broken = false;
    loadMore();
    EXPECT_EQ(list()->topLevelItemCount(), 45);
    EXPECT_EQ(label("notice"), "");
    loadMore();
    EXPECT_FALSE(button("加载更多")->isVisible()) << "the newcomers stand on the first page of the next time";
}

TEST_F(MessageList, SaysThatThereIsNothingOrWhyAndTriesAgain) {
    broken = true;
    open();
    EXPECT_TRUE(label("state").contains("500"));
    broken = false;
    kind = "{}";
    QTest::keyClick(button("重试"), Qt::Key_Space);
    EXPECT_TRUE(label("state").contains("无法识别"));
    count = 0;
    unread = 0;
    QTest::keyClick(button("重试"), Qt::Key_Space);
    EXPECT_EQ(label("state"), "暂无消息");
    EXPECT_FALSE(button("重试")->isVisible() || button("打开任务")->isEnabled() || button("全部已读")->isEnabled());
}

TEST_F(MessageList, MarksAllAsRead) {
    open();
    QTest::mouseClick(button("全部已读"), Qt::LeftButton);
    EXPECT_EQ(marked(), std::vector<std::string>{R"({"all":true})"});
    EXPECT_FALSE(isBold(0) || isBold(2) || button("全部已读")->isEnabled());
    EXPECT_EQ(shownUnread, 0);
}

TEST_F(MessageList, OpensOnceWithEnterOrADoubleClick) {
    open();
    isReady = false;
    why = "不能打开";
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(prepared, QStringList{"m0"});
    EXPECT_EQ(label("notice"), "不能打开");
    EXPECT_TRUE(dialog.isVisible() && isBold(0));
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_FALSE(isBold(2)) << "there is no more to be done about a task that is gone";
    EXPECT_EQ(marked(), std::vector<std::string>{R"({"ids":["m2"]})"});
    EXPECT_EQ(shownUnread, 1);

    isReady = true;
    prepared.clear();
    const QPoint middle = list()->visualItemRect(list()->topLevelItem(0)).center();
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(prepared, QStringList{"m0"});
    EXPECT_EQ(marked().back(), R"({"ids":["m0"]})");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.chosen().taskId, "t0");
}

/// Notes the tasks that it is run with.
class Command final : public BASECORE::CMD::CPushMsgCmdObj {
public:
    explicit Command(QStringList& runs) : m_runs(runs) {}
    std::wstring GetName() const override { return DISCLOSUREPACKAGE::kCommandName; }
    bool RunCommand() override {
        const boost::any parameter = GetParam(DISCLOSUREPACKAGE::kParamTaskId);
        const auto* taskId = boost::any_cast<std::wstring>(&parameter);
        const auto* project =
            BASECORE::FRAME::LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject);
        m_runs << QString::fromStdWString((taskId ? *taskId : L"nothing") + L" in " + project->GetCurDeptId());
        return true;
    }
    bool FinishCommand() override { return true; }

private:
    QStringList& m_runs;
};

class Bell : public Messages {
protected:
    void start(bool withPlugIn = true) {
        bench = std::make_unique<workbench::Workbench>(support::optionsFor(platform, dir.path(), dir.path()));
        QString why;
        ASSERT_TRUE(bench->logIn(why)) << why.toStdString();
        if (withPlugIn)
            bench->registry().add(std::make_unique<Command>(runs));
        bench->start();
    }
    QToolButton* bell() const {
        for (auto* found : bench->window().findChildren<QToolButton*>())
            if (found->accessibleName().startsWith("消息"))
                return found;
        return nullptr;
    }
    bool activate() {
        bench->window().activateWindow();  // there is no window manager that would give it back
        return QTest::qWaitForWindowActive(&bench->window());
    }
    /// Opens the message in that row and returns what the list then says.
    QString openMessage(int row) {
        QString notice;
        if (!activate())
            return "no window";
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<MessageDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto* list = dialog->findChild<QTreeWidget*>();
            ASSERT_TRUE(comesTrue([&] { return list->topLevelItemCount() == count; }));
            list->setCurrentItem(list->topLevelItem(row));
            QTest::keyClick(list, Qt::Key_Return);
            notice = dialog->findChild<QLabel*>("notice")->text();
            dialog->close();
        });
        QTest::keyClick(&bench->window(), Qt::Key_M, Qt::ControlModifier);
        QTest::qWait(1);
        return notice;
    }

    QStringList runs;
    QTemporaryDir dir;
    std::unique_ptr<workbench::Workbench> bench;
};

TEST_F(Bell, LeadsToTheTask) {
    count = 4;
    start();
    EXPECT_EQ(openMessage(0), "");
    EXPECT_EQ(runs, QStringList{"t0 in D1"});
    EXPECT_EQ(bell()->accessibleName(), "消息，1条未读");
    EXPECT_TRUE(boxes.isEmpty());
    openMessage(2);
    EXPECT_EQ(boxes, QStringList{"任务不存在或已被删除"});
    openMessage(3);
    EXPECT_EQ(runs.last(), "t3 in D1") << "the service decides on a department that nobody knows";
    EXPECT_EQ(boxes.size() + runs.size(), 3);
}

TEST_F(Bell, ChangesTheProjectIfTheUserAndThePlugInsAgree) {
    support::Veto veto;
    start();
    BASECORE::FRAME::LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject)
        ->AddProjLoadObserver(&veto, 1);
    boxAnswer = BASEUI::MessageResult::Cancel;
    EXPECT_EQ(openMessage(1), "");
    EXPECT_EQ(boxes, QStringList{"该任务属于项目“二号楼”，是否切换？?"});
    boxAnswer = BASEUI::MessageResult::Ok;
    EXPECT_TRUE(openMessage(1).contains("二号楼"));
    EXPECT_TRUE(runs.isEmpty() && marked().empty());
    veto.holds = false;
    openMessage(1);
    EXPECT_EQ(runs, QStringList{"t1 in D2"});
    EXPECT_EQ(bench->window().findChild<QComboBox*>()->currentText(), "二号楼");
    bench.reset();  // before the observer that it knows
}

TEST_F(Bell, TellsTheNumberAndGoesByKeyboardLikeItsNeighbours) {
    start();
    ASSERT_NE(bell(), nullptr);
    EXPECT_TRUE(comesTrue([this] { return bell()->accessibleName() == "消息，2条未读"; }));
    unread = 120;
    const std::size_t countedBefore = polls();
    emit bench->window().findChild<QComboBox*>()->activated(1);
    EXPECT_TRUE(comesTrue([this] { return bell()->accessibleName() == "消息，120条未读"; }));
    EXPECT_EQ(polls(), countedBefore + 1);
    ASSERT_TRUE(activate());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(comesTrue([this] { return runs.size() == 1; })) << "the command has the keyboard from the start";
    QTest::keyClick(&bench->window(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(comesTrue([this] { return runs.size() == 2; }));
    const auto readings = [this] { return asked("/rs/platform/projects").size(); };
    const std::size_t before = readings();
    QTest::keyClick(&bench->window(), Qt::Key_F5);
    EXPECT_EQ(readings(), before + 1);
    QTest::keyClick(&bench->window(), Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(qobject_cast<QComboBox*>(QApplication::focusWidget()));
    QWidget* dialog = nullptr;
    QTimer::singleShot(0, qApp, [&] {
        dialog = QApplication::activeModalWidget();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::keyClick(bell(), Qt::Key_Enter);
    EXPECT_NE(dialog, nullptr);
}

TEST_F(Bell, SaysThatThePlugInIsMissing) {
    start(false);
    EXPECT_EQ(openMessage(0), "没有加载技术交底插件，无法打开任务");
}

}  // namespace
