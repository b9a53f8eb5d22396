
#include "host/platform/PlatformClient.h"
#include "host/platform/PlatformData.h"
#include "tests/host/TestPlatform.h"

namespace {

using support::ScriptedServer;
using workbench::Outcome;
using workbench::PlatformClient;
using Reply = ScriptedServer::Reply;
using Fault = ScriptedServer::Fault;

struct Case {
    const char* name;
    Reply reply;
    Outcome outcome;
    bool isTrouble;  // of the service itself
    const char* text;
};

const std::string kGood = R"({"code":200,"success":true,"msg":"","result":[1]})";

Reply faulty(Fault fault, const std::string& body = "") {
    return {200, body, "", {}, 0, fault};
}

const Case kCases[] = {
    {"good", {200, kGood}, Outcome::Ok, false, ""},
    {"a large header", {200, kGood, "", {"X-Large: " + std::string(200000, 'x')}}, Outcome::Ok, false, ""},
    {"refused by a rule", support::refusal(200, 4001, "名称已存在"), Outcome::Refused, false, "名称已存在"},
    {"refused without words", support::refusal(200, 4001, ""), Outcome::Refused, false, "4001"},
    {"wrong password", support::refusal(401, 401, "密码不正确"), Outcome::Refused, false, "密码不正确"},
    {"throttled", support::refusal(429, 429, "请稍后再试"), Outcome::Refused, false, "请稍后再试"},
    {"not found, in HTML", {404, "<html>", "text/html"}, Outcome::Refused, false, "404"},
    {"internal error", {500, ""}, Outcome::Refused, true, "500"},
    {"expired", support::sessionExpired(), Outcome::SessionExpired, false, "登录"},
    {"HTML", {200, "<html></html>", "text/html; charset=utf-8"}, Outcome::Malformed, true, "无法识别"},
    {"no JSON", {200, "{\"code\":200,"}, Outcome::Malformed, true, "无法识别"},
    {"a list", {200, "[]"}, Outcome::Malformed, true, "无法识别"},
    {"a code of another type", {200, R"({"code":"200","result":[]})"}, Outcome::Malformed, true, "无法识别"},
    {"nothing", {204, "", ""}, Outcome::Malformed, true, "无法识别"},
    {"half a body", faulty(Fault::HalfBody, kGood + std::string(4000, ' ')), Outcome::Unreachable, true, "连接中断"},
    {"no HTTP", {200, "", "", {}, 0, Fault::None, "220 ready\r\n\r\n"}, Outcome::Unreachable, true, "无法连接"},
    {"closed at once", faulty(Fault::ClosesAtOnce), Outcome::Unreachable, true, "无法连接"},
    {"never answered", faulty(Fault::NeverAnswers), Outcome::TimedOut, true, "没有按时"},
    {"late", {200, kGood, "application/json", {}, 3000}, Outcome::TimedOut, true, "没有按时"},
    {"elsewhere", {301, "", "", {"Location: /other"}}, Outcome::Malformed, true, "无法识别"},
};

class Client : public testing::Test {
protected:
    Client() { client.setAddress(server.address()); }

    ScriptedServer server{[](const auto&) { return support::result("[]"); }};
    PlatformClient client{std::chrono::seconds(30)};
    workbench::PlatformData data{client};
};

TEST_F(Client, TellsEveryKindOfAnswerApart) {
    PlatformClient hasty(std::chrono::milliseconds(100));
    hasty.setAddress(server.address());
    int troubles = 0;
    for (PlatformClient* one : {&client, &hasty})
        one->setTroubleListener([&](const QString&) { ++troubles; });
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        server.setHandler([&](const auto&) { return c.reply; });
        troubles = 0;
        const auto answer = (c.outcome == Outcome::TimedOut ? hasty : client).get("/rs/platform/projects");
        EXPECT_EQ(answer.outcome, c.outcome);
        EXPECT_EQ(answer.text.isEmpty(), c.outcome == Outcome::Ok);
        EXPECT_TRUE(answer.text.contains(c.text)) << answer.text.toStdString();
        EXPECT_EQ(troubles, c.isTrouble ? 1 : 0);
    }
}

TEST_F(Client, SendsCookieBodyAndExactQuery) {
    client.setSessionId("abc");
    EXPECT_TRUE(data.rights(L"A&b+c %25=部"));
    client.post("/rs/auth/login", {{"username", "张"}});
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].target, "/rs/platform/rights?deptId=A%26b%2Bc%20%2525%3D%E9%83%A8");
    EXPECT_EQ(requests[0].headers.at("cookie"), "JSESSIONID=abc");
    EXPECT_EQ(requests[1].method, "POST");
    EXPECT_EQ(requests[1].body, "{\"username\":\"张\"}");
}

TEST_F(Client, RepeatsOnceAfterARecoveredSession) {
    server.setHandler([](const auto&) { return support::sessionExpired(); });
    bool canRecover = false;
    int recoveries = 0;
    client.setRecovery([&](const QString&) {
        ++recoveries;
        return canRecover;
    });
    EXPECT_EQ(client.get("/rs/x").outcome, Outcome::SessionExpired);
    EXPECT_EQ(server.requests().size(), 1U);
    canRecover = true;
    EXPECT_EQ(client.get("/rs/x").outcome, Outcome::SessionExpired);
    EXPECT_EQ(server.requests().size(), 3U);
    EXPECT_EQ(recoveries, 2);
}

TEST_F(Client, ARecordOfAnotherFormSpoilsTheWholeList) {
    const char* const bad[] = {
        R"({"ppid":1})",
        "null",
        "[1]",
        R"([{"ppid":1,"name":"a","deptId":"D"},{"ppid":"2","name":"b","deptId":"D"}])",
        R"([{"ppid":1.5,"name":"a","deptId":"D"}])",
        R"([{"ppid":3000000000,"name":"a","deptId":"D"}])",
        R"([{"ppid":1,"name":null,"deptId":"D"}])",
    };
    for (const char* json : bad) {
        server.setHandler([&](const auto&) { return support::result(json); });
        EXPECT_FALSE(data.projects()) << json;
    }
    server.setHandler([](const auto&) { return support::result(R"([{"ppid":7,"name":"桥","deptId":"D","more":0}])"); });
    const auto projects = data.projects();
    ASSERT_TRUE(projects && projects->size() == 1);
    EXPECT_EQ(std::to_wstring(projects->front().ppid) + projects->front().projName, L"7桥");
}

}  // namespace
