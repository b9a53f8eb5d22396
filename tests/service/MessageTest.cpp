#include "service/store/SqliteDatabase.h"
#include "tests/service/ReminderTest.h"

namespace disclosure::testing {
namespace {

const std::string Path = "/rs/platform/messages";

class MessageTest : public ::testing::Test {
protected:
    MessageTest() {
        store->putPushConfig({"config", DemoDept, true, 30, 1, true, 1});
        service.now = at(11, 21, 9);
    }
    void remindOf(const std::string& id) {
        store->addTask(taskFor(id, at(11, 22), 0));
        rules.run(*store, always);
        service.now += 1000;
    }
    rapidjson::Document page(const std::string& username, const std::string& query = {}) {
        auto json = service.loggedIn(username).get(Path + query).json();
        EXPECT_EQ(json["code"].GetInt(), 200);
        return json;
    }
    int unread(const std::string& username) {
        const auto json = service.loggedIn(username).get(Path + "/unread").json();
        return json["result"]["unreadCount"].GetInt();
    }

    TestService service;
    std::unique_ptr<IStore> store = service.database().connect();
    Reminders rules{{}, [this] { return service.now.load(); }};
};

TEST_F(MessageTest, ArePagedTheNewestFirst) {
    for (const char* id : {"a", "b", "c"})
        remindOf(id);
    const auto all = page("zhoujie");
    EXPECT_EQ(all["result"]["totalCount"].GetInt(), 3);
    EXPECT_EQ(all["result"]["unreadCount"].GetInt(), 3);
    const auto& newest = all["result"]["result"][0];
    EXPECT_STREQ(newest["taskId"].GetString(), "c");
    EXPECT_STREQ(newest["taskName"].GetString(), "钢筋c");
    EXPECT_STREQ(newest["catalogId"].GetString(), "demo-catalog-4");
    EXPECT_STREQ(newest["deptId"].GetString(), DemoDept);
    EXPECT_EQ(newest["kind"].GetInt(), 1);
    EXPECT_EQ(newest["createdDateMills"].GetInt64(), at(11, 21, 9) + 2000);
    EXPECT_STREQ(newest["text"].GetString(), "交底任务“钢筋c”计划于2026年11月22日交底，请及时处理");
    const auto second = page("zhoujie", "?currentPage=2&pageSize=2");
    ASSERT_EQ(second["result"]["result"].Size(), 1U);
    EXPECT_STREQ(second["result"]["result"][0]["taskId"].GetString(), "a");
    EXPECT_EQ(second["result"]["totalCount"].GetInt(), 3);
    EXPECT_EQ(page("sunli")["result"]["totalCount"].GetInt(), 0);
    for (const char* query : {"?pageSize=0", "?pageSize=101", "?currentPage=0", "?currentPage=x"})
        EXPECT_EQ(service.loggedIn("demo").get(Path + query).status, 400) << query;
}

TEST_F(MessageTest, AreMarkedReadByTheirOwnersOnly) {
    for (const char* id : {"a", "b", "c"})
        remindOf(id);
    const auto ids = page("liuyang");
    const std::string first = ids["result"]["result"][0]["id"].GetString();
    const std::string body = R"({"ids":[")" + first + R"(","none","99999999999999999999",""]})";
    EXPECT_EQ(service.loggedIn("chenwei").post(Path + "/read", body).code(), 200);
    EXPECT_EQ(unread("liuyang"), 3);
    EXPECT_EQ(unread("chenwei"), 3);
    EXPECT_EQ(service.loggedIn("liuyang").post(Path + "/read", body).code(), 200);
    EXPECT_EQ(unread("liuyang"), 2);
    const auto after = page("liuyang");
    EXPECT_TRUE(after["result"]["result"][0]["isRead"].GetBool());
    EXPECT_FALSE(after["result"]["result"][1]["isRead"].GetBool());
    EXPECT_EQ(service.loggedIn("liuyang").post(Path + "/read", R"({"all":true})").code(), 200);
    EXPECT_EQ(unread("liuyang"), 0);
    EXPECT_EQ(unread("zhoujie"), 3);
    for (const char* wrong : {"{}", R"({"all":false})", R"({"ids":[1]})", R"({"ids":"x"})"})
        EXPECT_EQ(service.loggedIn("liuyang").post(Path + "/read", wrong).status, 400) << wrong;
}

TEST_F(MessageTest, TellOfTheTaskAsItIsNow) {
    remindOf("a");
    alterTask(*store, "a", [](Task& task) {
        task.name = "改名";
        task.receivers.erase(task.receivers.begin());
    });
    const auto seen = [&](const std::string& username) {
        const auto json = page(username);
        const auto& message = json["result"]["result"][0];
        EXPECT_NE(std::string(message["text"].GetString()).find("钢筋a"), std::string::npos);
        return std::string(message["taskId"].GetString()) + "/" + message["taskName"].GetString() + "/" +
               message["catalogId"].GetString();
    };
    EXPECT_EQ(seen("liuyang"), "a/改名/demo-catalog-4") << "a member, though no longer a receiver";
    EXPECT_EQ(seen("zhoujie"), "a/改名/demo-catalog-4");
    alterTask(*store, "a", [](Task& task) { task.receivers.clear(); });
    EXPECT_EQ(seen("zhoujie"), "//") << "may no longer see it";
    EXPECT_EQ(seen("chenwei"), "a/改名/demo-catalog-4");
    removeTask(*store, "a");
    EXPECT_EQ(seen("chenwei"), "//");
}

}  // namespace
}  // namespace disclosure::testing
