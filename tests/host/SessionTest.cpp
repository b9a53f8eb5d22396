
#include <QtTest/QTest>

#include "host/managers/CasMgr.h"
#include "host/managers/RestServWebMgr.h"
#include "host/managers/WebMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/baseui/MessageBox.h"
#include "tests/host/TestPlatform.h"

namespace {

using BASECORE::NAMES::kServiceKey;
using support::TestPlatform;
using workbench::Outcome;

class Session : public testing::Test {
protected:
    Session() { makeManager(); }
    void logIn() { ASSERT_TRUE(keeper.logIn(platform.server.address(), "demo", "demo").ok()); }
    void makeManager(std::chrono::steady_clock::duration refusedAgain = std::chrono::hours(1)) {
        rest = std::make_unique<workbench::CRestServWebMgr>(
            keeper,
            [this](const QString& reason) {
                prompts.push_back(reason.toStdString());
                return prompt && prompt();
            },
            refusedAgain);
        client.setRecovery([this](const QString&) { return rest->RenewSession(kServiceKey, L"302"); });
    }
    bool renew() { return rest->RenewSession(kServiceKey, L"302 error"); }

    TestPlatform platform;
    workbench::PlatformClient client{std::chrono::seconds(30)};
    workbench::SessionKeeper keeper{client};
    std::unique_ptr<workbench::CRestServWebMgr> rest;
    std::vector<std::string> prompts;
    std::function<bool()> prompt;
};

TEST_F(Session, ALoginIsSeenThroughTheManagers) {
    workbench::CWebMgr web(keeper);
    workbench::CCasMgr cas(keeper);
    EXPECT_EQ(web.GetCurrentSession(), nullptr);
    logIn();
    const std::wstring address = web.GetServiceAddress(kServiceKey);
    EXPECT_EQ(address, platform.server.address().toStdWString());
    ASSERT_NE(web.GetCurrentSession(), nullptr);
    ASSERT_NE(web.GetCurrentSession()->GetCookieHolder(address), nullptr);
    EXPECT_EQ(web.GetCurrentSession()->GetCookieHolder(address)->GetEntry("VALUE"), "S1");
    EXPECT_EQ(web.GetCurrentSession()->GetCookieHolder(L"other:80"), nullptr);
    EXPECT_EQ(cas.GetUserName() + cas.GetRealName(), L"demo张工");
}

TEST_F(Session, ARefusedOrStrangeLoginChangesNothing) {
    logIn();
    EXPECT_EQ(keeper.logIn(platform.server.address(), "demo", "wrong").outcome, Outcome::Refused);
    platform.server.setHandler([](const auto&) { return support::result("{}"); });
    EXPECT_EQ(keeper.logIn(platform.server.address(), "demo", "demo").outcome, Outcome::Malformed);
    platform.server.setHandler([](const auto&) { return support::result(TestPlatform::kUser); });
    EXPECT_EQ(keeper.logIn(platform.server.address(), "demo", "demo").outcome, Outcome::Malformed) << "no cookie";
    EXPECT_EQ(keeper.session()->id(), "S1");
    EXPECT_EQ(keeper.logIn("127.0.0.1:1", "demo", "demo").outcome, Outcome::Unreachable);
    EXPECT_EQ(keeper.address(), platform.server.address());
}

TEST_F(Session, ExpiredOnesAreRenewedWithTheWordsInMemory) {
    logIn();
    platform.expireSessions();
    EXPECT_TRUE(client.get("/rs/platform/projects").ok());
    EXPECT_EQ(keeper.session()->id(), "S2");
    EXPECT_TRUE(prompts.empty());
}

TEST_F(Session, AFreshOneThatIsRefusedAgainIsNotRenewedOnceMore) {
    logIn();
    platform.expireSessions();
    EXPECT_TRUE(renew());
    int boxes = 0;
    BASEUI::SetMessageBoxHandler([&](const std::wstring&, QWidget*, BASEUI::MessageButtons) {
        ++boxes;
        return BASEUI::MessageResult::Ok;
    });
    EXPECT_FALSE(renew());
    platform.expireSessions();
    EXPECT_FALSE(renew()) << "too early after the last renewal";
    EXPECT_EQ(boxes, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return boxes > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(boxes, 1) << "said once";
    BASEUI::SetMessageBoxHandler({});
    makeManager(std::chrono::seconds(0));
    EXPECT_TRUE(renew());
    EXPECT_TRUE(renew());
    EXPECT_FALSE(rest->RenewSession(L"OTHER", L""));
}

TEST_F(Session, OneThatFailsItsCheckIsNoRenewal) {
    logIn();
    platform.server.setHandler([this](const auto& request) {
        return request.target == "/rs/auth/login" ? platform.answer(request) : support::sessionExpired();
    });
    EXPECT_FALSE(renew());
    EXPECT_TRUE(prompts.empty());
    EXPECT_EQ(platform.server.requests().size(), 3U) << "login, login again, one check and no recursion";
}

TEST_F(Session, TheUserIsAskedWhenTheWordsAreRefusedOrMissing) {
    EXPECT_FALSE(rest->HasSession(kServiceKey));
    EXPECT_FALSE(renew());
    EXPECT_EQ(prompts, std::vector<std::string>{"请先登录。"});
    prompt = [this] { return keeper.logIn(platform.server.address(), "demo", "demo").ok(); };
    EXPECT_TRUE(renew());
    EXPECT_TRUE(rest->HasSession(kServiceKey));

    platform.expireSessions();
    makeManager();  // it has renewed none just now
    platform.server.setHandler([this](const auto& request) {
        return request.target == "/rs/auth/login" ? support::refusal(401, 401, "密码已修改") : platform.answer(request);
    });
    prompt = [] { return false; };
    EXPECT_FALSE(renew());
    EXPECT_EQ(prompts.back(), "登录已失效，请输入密码重新登录。") << "nothing was typed yet that could be wrong";
}

TEST_F(Session, ADeadServiceIsNotTheUsersFault) {
    logIn();
    platform.server.stop();
    EXPECT_FALSE(renew());
    EXPECT_TRUE(prompts.empty());
    EXPECT_TRUE(rest->HasSession(kServiceKey));
}

TEST_F(Session, RenewingWhileTheUserIsAskedIsRefused) {
    prompt = [this] { return renew(); };
    EXPECT_FALSE(renew());
    EXPECT_EQ(prompts.size(), 1U);
}

TEST_F(Session, EndingItLogsOutAtTheService) {
    logIn();
    rest->EndSession(kServiceKey);
    EXPECT_FALSE(rest->HasSession(kServiceKey));
    const auto last = platform.server.requests().back();
    EXPECT_EQ(last.target, "/rs/auth/logout");
    EXPECT_EQ(last.headers.at("cookie"), "JSESSIONID=S1");
    EXPECT_EQ(keeper.user().userName, L"");
}

TEST_F(Session, AReportShowsItsTextWithoutTheCode) {
    std::wstring shown;
    BASEUI::SetMessageBoxHandler([&](const std::wstring& text, QWidget*, BASEUI::MessageButtons) {
        shown = text;
        return BASEUI::MessageResult::Ok;
    });
    rest->ReportStatus(4001, L"目录名称已存在");
    EXPECT_EQ(shown, L"") << "the refused call returns first";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shown.empty(); }));
    EXPECT_EQ(shown, L"目录名称已存在");
    BASEUI::SetMessageBoxHandler({});
}

}  // namespace
