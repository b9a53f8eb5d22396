#include <cpprest/json.h>
#include <set>

#include "tests/plugin/ManagerTest.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using namespace testing;
using namespace support;
using web::json::value;

const std::string kTask = "/rs/disclosure/task/";

class TaskChangesTest : public support::ManagerTest {
protected:
    value lastBody() const { return value::parse(last().body); }

    /// The task of the golden file, as it comes from a page, and the service ready to accept a change.
    TaskRecord loaded() {
        server.then(answerOf(R"({"result":[)" + support::readText("golden/DisclosureTaskResponse.json") +
                             R"(],"totalCount":1})"));
        std::vector<TaskRecord> tasks;
        int32_t total = 0;
        EXPECT_TRUE(manager.PageTasks({}, tasks, total));
        answer(kDone);
        return tasks.at(0);
    }

    const std::vector<std::string> dates{"constructionStartDateMills", "constructionEndDateMills",
                                         "planDisclosureDateMills", "actualDisclosureDateMills", "expiryDateMills"};
};

TEST_F(TaskChangesTest, ASavedTaskSendsWhatTheRecordHolds) {
    TaskRecord task = loaded();
    task.name = L"地下室底板\\施工\"交底\"";
    task.remark = L"第一行\n第二行";
    task.expiryDateMills = 253402300799999;
    task.isPublish = 7;
    task.disclosureTaskNodeList[0].ppid = task.disclosureTaskDocList[0].ppid = 42;
    task.disclosureTaskDocList[0].sourceType = 0;
    EXPECT_TRUE(manager.SaveTask(task));
    EXPECT_EQ(last().method + last().target, "POST" + kTask + "save");
    EXPECT_EQ(pretty(last().body) + "\n", support::readText("golden/DisclosureTaskSaveRequest.json"));
    EXPECT_EQ(last().header("X-Task-Version"), "");
}

TEST_F(TaskChangesTest, ANewTaskGetsIdsAndLeavesOutMissingDates) {
    TaskRecord task;
    task.planDisclosureDateMills = -1;
    task.expiryDateMills = 1;
    task.disclosureTaskReceiveUserList.resize(2);
    task.disclosureTaskViewportList.resize(1);
    task.disclosureTaskNodeList.resize(1);
    task.disclosureTaskDocList.resize(1);
    task.disclosureTaskReceiveUserList[0].disclosureTaskId = L"another";
    server.then(kExpired).then(kDone);
    host.rest.renewals = {true};
    EXPECT_TRUE(manager.SaveTask(task));
    EXPECT_EQ(task.id + task.disclosureTaskReceiveUserList[0].id, L"");
    ASSERT_THAT(server.requests(), SizeIs(2));

    std::set<std::string> ids;
    for (const auto& request : server.requests()) {
        const auto body = value::parse(request.body);
        for (const auto& date : dates)
            EXPECT_EQ(body.has_field(date), date == "expiryDateMills") << date;
        const std::string id = body.at("id").as_string();
        EXPECT_EQ(id.size(), 36u);
        ids.insert(id);
        for (const char* list : {"disclosureTaskReceiveUserList", "disclosureTaskViewportList",
                                 "disclosureTaskNodeList", "disclosureTaskDocList"})
            for (const auto& link : body.at(list).as_array()) {
                ids.insert(link.at("id").as_string());
                EXPECT_EQ(link.at("disclosureTaskId").as_string(), id);
            }
    }
    EXPECT_THAT(ids, SizeIs(12));  // six in each of the two requests
    EXPECT_EQ(ids.count(""), 0u);
}

TEST_F(TaskChangesTest, AnUpdateSendsAllDatesAndOnlyTheLinksThatChanged) {
    TaskRecord task = loaded();
    task.disclosureCatalogId = L"c-2";
    task.actualDisclosureDateMills = 0;
    task.isPublish = 0;
    task.remark.clear();
    EXPECT_TRUE(manager.UpdateTask(task));
    EXPECT_EQ(lastCall(),
              "POST " + kTask +
                  R"(update {"id":"t-1","disclosureCatalogId":"c-2","name":"地下室底板施工交底",)"
                  R"("disclosureUserName":"zhang.san","constructionStartDateMills":1699977600000,)"
                  R"("constructionEndDateMills":1702569600000,"planDisclosureDateMills":1699804800000,)"
                  R"("actualDisclosureDateMills":0,"expiryDateMills":1703174400000,"isPublish":0,"remark":"",)"
                  R"("saveDisclosureTaskReceiveUserList":[],"delDisclosureTaskReceiveUserIds":[],)"
                  R"("saveDisclosureTaskViewportList":[],"delDisclosureTaskViewportIds":[],)"
                  R"("saveDisclosureTaskNodeList":[],"delDisclosureTaskNodeIds":[],)"
                  R"("saveDisclosureTaskDocList":[],"delDisclosureTaskDocIds":[]})");
    EXPECT_THAT(server.requests(), SizeIs(1));

    // The same links under other ids are no change; another project or another element is.
    task.disclosureTaskReceiveUserList[0].id = L"other";
    task.disclosureTaskReceiveUserList.emplace_back().userName = L"wang.wu";
    task.disclosureTaskViewportList[0].ppid = 1;
    task.disclosureTaskNodeList[0].nodeId = L"node-10";
    task.disclosureTaskNodeList[0].id.clear();
    task.disclosureTaskDocList[0].name = L"改名";
    task.disclosureTaskDocList.emplace_back().id = L"doc-2";
    EXPECT_TRUE(manager.UpdateTask(task));
    auto body = lastBody();
    const auto textOf = [&](const char* list, const char* key) { return body.at(list).at(0).at(key).as_string(); };
    EXPECT_EQ(textOf("saveDisclosureTaskReceiveUserList", "userName"), "wang.wu");
    EXPECT_EQ(textOf("saveDisclosureTaskReceiveUserList", "id").size(), 36u);
    EXPECT_EQ(textOf("saveDisclosureTaskReceiveUserList", "disclosureTaskId"), "t-1");
    EXPECT_EQ(body.at("delDisclosureTaskReceiveUserIds").serialize(), "[]");
    EXPECT_EQ(body.at("saveDisclosureTaskViewportList").at(0).at("ppid").as_integer(), 1);
    EXPECT_EQ(body.at("delDisclosureTaskViewportIds").serialize(), R"(["vp-1"])");
    EXPECT_EQ(textOf("saveDisclosureTaskNodeList", "id").size(), 36u);
    EXPECT_EQ(body.at("delDisclosureTaskNodeIds").serialize(), R"(["nd-1"])");
    EXPECT_EQ(body.at("saveDisclosureTaskDocList").size(), 1u);
    EXPECT_EQ(textOf("saveDisclosureTaskDocList", "id"), "doc-2");
    EXPECT_EQ(body.at("delDisclosureTaskDocIds").serialize(), "[]");

    task.disclosureTaskDocList.resize(1);
    task.disclosureTaskDocList[0].uuid = L"newer";
    EXPECT_TRUE(manager.UpdateTask(task));
    body = lastBody();
    EXPECT_EQ(textOf("saveDisclosureTaskDocList", "id") + textOf("saveDisclosureTaskDocList", "uuid"), "doc-1newer");
    EXPECT_EQ(body.at("delDisclosureTaskDocIds").serialize(), "[]");

    task.disclosureTaskReceiveUserList.clear();
    task.disclosureTaskDocList.clear();
    EXPECT_TRUE(manager.UpdateTask(task));
    body = lastBody();
    EXPECT_EQ(body.at("delDisclosureTaskReceiveUserIds").serialize(), R"(["ru-1"])");
    EXPECT_EQ(body.at("delDisclosureTaskDocIds").serialize(), R"(["doc-1"])");
}

TEST_F(TaskChangesTest, TheVersionTravelsWithTheUpdateOnly) {
    TaskRecord task = loaded();
    answer(kExpired);
    server.then(kDone);
    host.rest.renewals = {true};
    EXPECT_TRUE(manager.UpdateTask(task));
    ASSERT_THAT(server.requests(), SizeIs(2));
    for (const auto& request : server.requests()) {
        EXPECT_EQ(request.header("X-Task-Version"), "1700000000456");
        EXPECT_EQ(request.header("Cookie"), "JSESSIONID=session-1");
    }
    answer(RawHttpServer::json(R"({"code":409,"success":false,"msg":"任务已被他人修改，请核对后再保存"})"));
    EXPECT_FALSE(manager.UpdateTask(task) || manager.SaveTask(task));
    const auto refusal = Pair(409, L"任务已被他人修改，请核对后再保存");
    EXPECT_THAT(host.rest.reported, ElementsAre(refusal, refusal));

    answer(kDone);
    task.updateDateMills = 0;
    EXPECT_TRUE(manager.UpdateTask(task));
    EXPECT_EQ(last().header("X-Task-Version"), "");

    host.web.hasSession = false;  // the client made last stays, without the header
    task.updateDateMills = 5;
    EXPECT_TRUE(manager.UpdateTask(task));
    EXPECT_EQ(last().header("X-Task-Version"), "5");
    EXPECT_TRUE(manager.MoveTaskToCatalog(L"t-1", L"c-2"));
    EXPECT_EQ(last().header("X-Task-Version"), "");
}

TEST_F(TaskChangesTest, AnUpdateIsComparedWithTheTaskItWasMadeFrom) {
    TaskRecord task = loaded();
    task.disclosureTaskReceiveUserList.clear();
    const auto expectAsked = [&](const std::string& id, const std::string& current, const std::string& deleted) {
        answer(answerOf(current));
        server.then(kDone);
        EXPECT_TRUE(manager.UpdateTask(task));
        ASSERT_THAT(server.requests(), SizeIs(2));
        EXPECT_EQ(server.requests()[0].target, kTask + "query_disclosure_task_by_id/" + id);
        EXPECT_EQ(lastBody().at("delDisclosureTaskReceiveUserIds").serialize(), deleted);
    };
    task.updateDateMills += 1;  // read after the page
    expectAsked("t-1", R"({"id":"t-1","disclosureTaskReceiveUserList":[{"id":"ru-8","userName":"x"}]})", R"(["ru-8"])");
    task.id = L"t-9";  // not in the page
    expectAsked("t-9", R"({"id":"t-9"})", "[]");

    answer(RawHttpServer::json(R"({"code":404,"msg":"任务不存在"})"));
    EXPECT_FALSE(manager.UpdateTask(task));
    EXPECT_THAT(server.requests(), SizeIs(1));
    EXPECT_THAT(host.rest.reported, ElementsAre(Pair(404, L"任务不存在")));
}

TEST_F(TaskChangesTest, TheOtherChangesSendJustWhatTheyName) {
    server.then(kDone);
    EXPECT_TRUE(manager.MoveTaskToCatalog(L"t-1", L"c-2"));
    EXPECT_EQ(lastCall(), "POST " + kTask + R"(update {"id":"t-1","disclosureCatalogId":"c-2"})");
    EXPECT_TRUE(manager.BatchDeleteTasks({L"t-2", L"t-1", L"t-2"}));
    EXPECT_EQ(lastCall(), "DELETE " + kTask + R"(batchdelete {"ids":["t-2","t-1","t-2"]})");
    const PushConfig config{L"push-1", L"dept-1", true, 3, 2, false, 1};
    EXPECT_TRUE(manager.SavePushConfig(config));
    EXPECT_EQ(last().method + last().target, "POST" + kTask + "save_push_config");
    EXPECT_EQ(pretty(last().body) + "\n", support::readText("golden/DisclosureTaskPushConfigSaveRequest.json"));
    EXPECT_TRUE(manager.UpdatePushConfig(config));
    EXPECT_EQ(last().method + last().target, "POST" + kTask + "update_push_config");
    EXPECT_EQ(pretty(last().body) + "\n", support::readText("golden/DisclosureTaskPushConfigUpdateRequest.json"));
    EXPECT_THAT(host.rest.reported, IsEmpty());
}

}  // namespace
