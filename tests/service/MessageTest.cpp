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
    Answer get(const std::string& username, const std::string& rest = {}) {
        return service.loggedIn(username).get(Path + rest);
    }
    std::string unread(const std::string& username) { return get(username, "/unread").at("unreadCount"); }

    TestService service;
    std::unique_ptr<IStore> store = service.database().connect();
    Reminders rules{{}, [this] { return service.now.load(); }};
};

TEST_F(MessageTest, ArePagedTheNewestFirst) {
    for (const char* id : {"a", "b", "c"})
        remindOf(id);
    EXPECT_EQ(get("zhoujie").at("totalCount unreadCount result/0/taskId result/0/taskName result/0/catalogId "
                                "result/0/deptId result/0/kind result/0/createdDateMills result/0/text"),
              "3|3|c|钢筋c|demo-catalog-4|demo-dept-1|1|" + std::to_string(at(11, 21, 9) + 2000) +
                  "|交底任务“钢筋c”计划于2026年11月22日交底，请及时处理");
    EXPECT_EQ(get("zhoujie", "?currentPage=2&pageSize=2").at("result result/0/taskId totalCount"), "1|a|3");
    EXPECT_EQ(get("sunli").at("totalCount"), "0");
    for (const char* query : {"?pageSize=0", "?pageSize=101", "?currentPage=0", "?currentPage=x"})
        EXPECT_EQ(get("demo", query).status, 400) << query;
}

TEST_F(MessageTest, AreMarkedReadByTheirOwnersOnly) {
    for (const char* id : {"a", "b", "c"})
        remindOf(id);
    const std::string first = get("liuyang").at("result/0/id");
    const std::string body = R"({"ids":[")" + first + R"(","none","99999999999999999999",""]})";
    EXPECT_EQ(service.loggedIn("chenwei").post(Path + "/read", body).code(), 200);
    EXPECT_EQ(unread("liuyang") + unread("chenwei"), "33");
    EXPECT_EQ(service.loggedIn("liuyang").post(Path + "/read", body).code(), 200);
    EXPECT_EQ(get("liuyang").at("unreadCount result/0/isRead result/1/isRead"), "2|true|false");
    EXPECT_EQ(service.loggedIn("liuyang").post(Path + "/read", R"({"all":true})").code(), 200);
    EXPECT_EQ(unread("liuyang") + unread("zhoujie"), "03");
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
        const Answer answer = get(username);
        EXPECT_NE(answer.at("result/0/text").find("钢筋a"), std::string::npos);
        return answer.at("result/0/taskId result/0/taskName result/0/catalogId");
    };
    EXPECT_EQ(seen("liuyang"), "a|改名|demo-catalog-4") << "a member, though no longer a receiver";
    EXPECT_EQ(seen("zhoujie"), "a|改名|demo-catalog-4");
    alterTask(*store, "a", [](Task& task) { task.receivers.clear(); });
    EXPECT_EQ(seen("zhoujie"), "||") << "may no longer see it";
    EXPECT_EQ(seen("chenwei"), "a|改名|demo-catalog-4");
    removeTask(*store, "a");
    EXPECT_EQ(seen("chenwei"), "||");
}

}  // namespace
}  // namespace disclosure::testing
