
#include "tests/service/TestService.h"

namespace disclosure::testing {
namespace {

constexpr auto WhoPath = "/rs/platform/current_user";
constexpr std::int64_t Minute = 60'000;

class Sessions : public ::testing::Test {
protected:
    TestService service;
};

TEST_F(Sessions, LogInTellsThePersonAndLogOutEndsTheSession) {
    Client client = service.client();
    const Answer answer = client.login("demo", "demo");
    ASSERT_EQ(answer.status, 200);
    const auto person = answer.json();
    EXPECT_STREQ(person["result"]["username"].GetString(), "demo");
    EXPECT_STREQ(person["result"]["deptId"].GetString(), FirstDept);
    EXPECT_EQ(answer.cookie.size(), std::string("JSESSIONID=").size() + 64);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM web_session WHERE hash = '" + answer.cookie.substr(11) + "'"), 0)
        << "the id itself is not stored";

    EXPECT_EQ(client.get(WhoPath).code(), 200);
    EXPECT_EQ(client.post("/rs/auth/logout", "").code(), 200);
    EXPECT_EQ(client.get(WhoPath).status, 302);
}

TEST_F(Sessions, WithoutOneEveryGuardedPathAnswers302AndNothingElse) {
    for (const char* cookie : {"", "JSESSIONID=", "JSESSIONID=1", "JSESSIONID=x; JSESSIONID=y", "other=1"}) {
        Client client(service.port(), cookie);
        for (const char* path : {WhoPath, "/rs/unknown", "/rs/", "/rs/auth/logout", "/rs/disclosure/catalog/save"}) {
            const Answer answer = client.get(path);
            EXPECT_EQ(answer.status, 302) << path;
            EXPECT_FALSE(answer.hasLocation);
            EXPECT_TRUE(answer.body.empty());
        }
        EXPECT_EQ(client.post(SavePath, "{not json").status, 302);
    }
}

TEST_F(Sessions, EndWhenIdleAndInAnyCaseAfterHalfADay) {
    Client idle = service.loggedIn("reader");
    Client used = service.loggedIn("demo");
    service.now += 29 * Minute;
    EXPECT_EQ(used.get(WhoPath).code(), 200);
    service.now += 29 * Minute;
    EXPECT_EQ(idle.get(WhoPath).status, 302);
    for (int i = 0; i < 22; ++i) {
        EXPECT_EQ(used.get(WhoPath).code(), 200) << i;
        service.now += 29 * Minute;
    }
    EXPECT_EQ(used.get(WhoPath).code(), 200);
    service.now += 24 * Minute;
    EXPECT_EQ(used.get(WhoPath).status, 302) << "12 hours are over";

    service.loggedIn("demo");
    service.now += 40 * Minute;
    service.loggedIn("demo");
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM web_session"), 1) << "dead sessions are cleared away";
}

TEST_F(Sessions, AUseIsWrittenAtMostOnceAMinute) {
    Client client = service.loggedIn("demo");
    const auto seen = [&] { return service.number("SELECT seen_at FROM web_session"); };
    const auto begun = seen();
    service.now += Minute - 1;
    client.get(WhoPath);
    EXPECT_EQ(seen(), begun);
    service.now += 1;
    client.get(WhoPath);
    for (int i = 0; i < 2000 && seen() == begun; ++i)  // by the writer, when it is its turn
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(seen(), begun + Minute);
}

TEST_F(Sessions, ReadingAndItsSessionGoOnWhileNobodyCanWrite) {
    Client client = service.loggedIn("demo");
    soci::session other(soci::sqlite3, "dbname=" + service.file());
    other << "BEGIN IMMEDIATE";
    for (int i = 0; i < 3; ++i) {
        service.now += 20 * Minute;
        EXPECT_EQ(client.get(WhoPath).code(), 200) << "the session is in use, though no use could be written";
    }
    const Answer answer = client.post(SavePath, saveBody(FirstDept, "", "新", Top));
    EXPECT_EQ(answer.status, 503);
    EXPECT_EQ(answer.retryAfter, "1");
    other << "COMMIT";
    EXPECT_EQ(client.post(SavePath, saveBody(FirstDept, "", "新", Top)).code(), 200);
}

TEST_F(Sessions, WrongCredentialsAreRefusedAlikeAndThrottled) {
    Client client = service.client();
    const Answer unknown = client.login("nobody", "demo");
    const Answer wrong = client.login("reader", "demo");
    EXPECT_EQ(unknown.status, 401);
    EXPECT_EQ(wrong.status, 401);
    EXPECT_EQ(unknown.body, wrong.body);
    EXPECT_EQ(client.login(std::string(65, 'u'), "x").status, 401);
    EXPECT_EQ(client.login("demo", std::string(2000, 'x')).status, 401);

    for (int i = 1; i < 10; ++i)
        EXPECT_EQ(client.login("reader", "wrong").status, 401) << i;
    service.now += 2 * Minute;
    const Answer throttled = client.login("reader", "reader");
    EXPECT_EQ(throttled.status, 429) << "even with the right one";
    EXPECT_EQ(throttled.retryAfter, "180");
    EXPECT_EQ(throttled.msg(), "登录失败次数过多，请3分钟后再试");
    EXPECT_EQ(client.login("demo", "demo").status, 200) << "others are not held up";
    service.now += 3 * Minute - 1000;
    EXPECT_EQ(client.login("reader", "reader").msg(), "登录失败次数过多，请1秒后再试");
    service.now += 1001;
    EXPECT_EQ(client.login("reader", "reader").status, 200);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM login_attempt"), 0);
}

TEST_F(Sessions, AttemptsAreCountedForThePersonTheClientAndBoth) {
    using Outcome = Accounts::Outcome;
    const Passwords passwords(Passwords::Cost::Lowest);
    AccountLimits limits;
    limits.attempts = 2;
    limits.attemptsOfClient = 4;
    limits.attemptsOnPerson = 5;
    const Accounts accounts(
        limits, [this] { return service.now.load(); }, passwords);
    const auto store = service.database().connect();
    const auto login = [&](const char* username, const char* password, const char* client) {
        return accounts.login(*store, username, password, client).outcome;
    };
    const std::tuple<const char*, const char*, const char*, Outcome> rows[] = {
        {"demo", "x", "a", Outcome::Wrong},
        {"demo", "x", "a", Outcome::Wrong},
        {"demo", "demo", "a", Outcome::Throttled},  // both
        {"demo", "demo", "b", Outcome::Accepted},   // who is kept out at one client only
        {"reader", "x", "a", Outcome::Wrong},
        {"reader", "reader", "a", Outcome::Accepted},
        {"nobody", "x", "a", Outcome::Wrong},  // the fourth that stays of this client
        {"editor", "editor", "a", Outcome::Throttled},
        {"", "x", "c", Outcome::Wrong},  // nobody's, and not counted
        {"demo", "x", "c", Outcome::Wrong},
        {"demo", "x", "c", Outcome::Wrong},
        {"demo", "x", "d", Outcome::Wrong},  // the fifth at this person
        {"demo", "demo", "e", Outcome::Throttled},
        {"editor", "editor", "e", Outcome::Accepted},
    };
    for (int i = 0; const auto& [username, password, client, outcome] : rows)
        EXPECT_EQ(login(username, password, client), outcome) << "row " << i++;
    const auto refused = accounts.login(*store, "demo", "demo", "e");
    EXPECT_EQ(refused.wait, 5 * Minute);
    service.now += 5 * Minute + 1;
    EXPECT_EQ(login("demo", "demo", "a"), Outcome::Accepted);
}

TEST(SessionsBehindAProxy, CountForTheClientThatItNames) {
    for (const bool isKnown : {true, false}) {
        Server::Settings settings = TestService::quick();
        if (isKnown)
            settings.proxies = {"127.0.0.1"};
        const TestService service(settings);
        const std::string body = R"({"username":"demo","password":"wrong"})";
        for (int i = 1; i <= 12; ++i) {
            const std::string from = "1.2.3." + std::to_string(i);
            const int status =
                service.client()
                    .raw("POST /rs/auth/login HTTP/1.1\r\nHost: localhost\r\nX-Forwarded-For: " + from +
                         "\r\nContent-Type: application/json\r\nContent-Length: " + std::to_string(body.size()) +
                         "\r\n\r\n" + body)
                    .status;
            EXPECT_EQ(status, isKnown || i <= 10 ? 401 : 429) << i;
        }
    }
}

}  // namespace
}  // namespace disclosure::testing
