
#include "plugin/service/CDisclosureTaskFollowUp.h"
#include "tests/plugin/ManagerTest.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using namespace testing;

class TaskQueriesTest : public support::ManagerTest {
protected:
    /// A page that is answered after the session has been renewed.
    bool page(const std::string& result) {
        answer(support::kExpired);
        server.then(answerOf(result));
        host.rest.renewed.clear();
        host.rest.renewals = {true};
        tasks.clear();
        return manager.PageTasks(query, tasks, total);
    }
    bool isCached(const std::wstring& id) {
        TaskRecord found;
        return manager.FindCachedTask(id, found);
    }

    const TaskQuery query{L"d 1", L"c/2", 2, L"50%_&二", 4, -1, 1702569599999, 3, 30, L"taskName", L"ASC"};
    const std::string task = support::readText("golden/DisclosureTaskResponse.json");
    std::vector<TaskRecord> tasks;
    int32_t total = -5;
};

TEST_F(TaskQueriesTest, APageBringsEveryFieldOfItsTasks) {
    ASSERT_TRUE(page(R"({"result":[null,{"id":"bare"},)" + task + R"(],"totalCount":31})"));
    EXPECT_EQ(last().target,
              "/rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?currentPage=3&dateType=4&deptId=d%201"
              "&disclosureCatalogId=c/2&endDateMills=1702569599999&keyword=50%25_%26%E4%BA%8C&orderKey=taskName"
              "&orderType=ASC&pageSize=30&startDateMills=-1&status=2");
    EXPECT_EQ(total, 31);
    ASSERT_THAT(tasks, SizeIs(2));
    EXPECT_EQ(tasks[0].id, L"bare");
    EXPECT_EQ(tasks[0].name + tasks[0].confirmRemark, L"");
    EXPECT_EQ(tasks[0].updateDateMills + tasks[0].status, 0);

    // What a save sends back is held by the test of saving.
    const auto& read = tasks[1];
    const auto texts = [](auto... text) { return std::vector<std::wstring>{text...}; };
    EXPECT_EQ(texts(read.name, read.remark, read.updateBy, read.deptName, read.disclosureUserRealname,
                    read.disclosureUserHeadUuid, read.confirmRemark),
              texts(L"地下室底板施工交底", L"雨天顺延", L"zhao.liu", L"一分部", L"张三", L"head-17", L"已现场交底"));
    EXPECT_THAT((std::vector<int64_t>{read.expiryDateMills, read.updateDateMills, read.confirmDateMills, read.isPublish,
                                      read.status, read.isConfirm}),
                ElementsAre(1703174400000, 1700000000456, 1700000000789, 1, 3, 1));

    ASSERT_THAT(read.disclosureTaskReceiveUserList, SizeIs(1));
    const auto& user = read.disclosureTaskReceiveUserList[0];
    EXPECT_EQ(texts(user.userRealname, user.userHeadUuid), texts(L"李四", L"head-18"));
    EXPECT_EQ(user.isConfirm, 1);
    EXPECT_EQ(user.confirmDateMills, 1700000000123);
    ASSERT_TRUE(read.disclosureTaskViewportList.size() == 1 && read.disclosureTaskNodeList.size() == 1);
    ASSERT_TRUE(read.disclosureTaskDocList.size() == 1 && read.attachementList.size() == 1);
    const auto& view = read.disclosureTaskViewportList[0];
    const auto& node = read.disclosureTaskNodeList[0];
    EXPECT_EQ(texts(view.viewportName, view.viewportFileKey, node.nodeName, node.uuid, node.thumbnailUuid),
              texts(L"三层梁柱节点", L"file-21", L"KZ-1 钢筋", L"file-31", L"file-32"));
    const auto& doc = read.disclosureTaskDocList[0];
    const auto& file = read.attachementList[0];
    EXPECT_EQ(texts(file.id, file.name, file.uuid, file.md5, file.extension, file.thumbnailUuid, file.thumbnailMd5),
              texts(L"att-1", L"签到表.pdf", L"file-9", L"0cc175b9c0f1b6a831c399e269772661", L"pdf", L"file-10",
                    L"e4d909c290d0fb1ca068ffaddf22cbd0"));
    EXPECT_THAT((std::vector<int32_t>{node.ppid, doc.ppid, doc.sourceType, file.size, file.thumbnailSize}),
                ElementsAre(43, 44, 1, 30000, 4096));
}

TEST_F(TaskQueriesTest, TheCacheIsTheLastPageThatSucceeded) {
    EXPECT_TRUE(page(R"({"result":[{"id":"a","name":"first"},{"id":"a","name":"second"}],"totalCount":2})"));
    TaskRecord found;
    EXPECT_TRUE(manager.FindCachedTask(L"a", found));
    EXPECT_EQ(found.name, L"first");
    EXPECT_FALSE(manager.FindCachedTask(L"b", found));
    EXPECT_EQ(found.name, L"first");

    EXPECT_TRUE(page(R"({"result":[],"totalCount":9007199254740993})"));
    EXPECT_EQ(total, 2147483647);
    EXPECT_FALSE(isCached(L"a"));

    tasks.resize(1);
    tasks[0].id = L"of the caller";
    EXPECT_TRUE(manager.PageTasks(query, tasks, total));
    EXPECT_TRUE(isCached(L"of the caller")) << "the cache is the list as the caller has it now";

    ASSERT_TRUE(page(R"({"result":[{"id":"a"}],"totalCount":1})"));
    for (const char* broken : {R"({"result":[{"id":"b"},{"id":7}]})", R"([])", "null"}) {
        EXPECT_FALSE(page(broken)) << broken;
        EXPECT_THAT(tasks, IsEmpty());
        EXPECT_EQ(total, 1);
        EXPECT_FALSE(isCached(L"a") || isCached(L"b"));
    }
}

TEST_F(TaskQueriesTest, ATaskReadByItsIdIsNeverCached) {
    server.then(support::kExpired).then(answerOf(task));
    host.rest.renewals = {true};
    TaskRecord read;
    EXPECT_TRUE(manager.QueryTaskById(L"../二", read));
    EXPECT_EQ(last().target, "/rs/disclosure/task/query_disclosure_task_by_id/..%2F%E4%BA%8C");
    EXPECT_EQ(read.name, L"地下室底板施工交底");
    EXPECT_FALSE(isCached(read.id));
    answer(answerOf("null"));
    EXPECT_FALSE(manager.QueryTaskById(L"42", read));
    EXPECT_EQ(read.id, L"t-1");
}

TEST_F(TaskQueriesTest, PushConfigStartsFromItsDefaults) {
    PushConfig config;
    server.then(answerOf(support::readText("golden/DisclosureTaskPushConfigSaveRequest.json")));
    EXPECT_TRUE(manager.QueryPushConfig(L"", config));
    EXPECT_EQ(last().target, "/rs/disclosure/task/query_push_config?deptId=");
    EXPECT_EQ(config.id + config.deptId, L"push-1dept-1");
    EXPECT_TRUE(config.isNotifyAdvance && !config.isNotifyOverdue);
    EXPECT_THAT(
        (std::vector<int32_t>{config.daysNotifyAdvance, config.advanceNotifyFrequency, config.overdueNotifyFrequency}),
        ElementsAre(3, 2, 1));

    config.id = L"old";
    config.isNotifyAdvance = true;
    answer(answerOf("null"));
    EXPECT_TRUE(manager.QueryPushConfig(L"d", config));
    EXPECT_EQ(config.id, L"");
    EXPECT_FALSE(config.isNotifyAdvance);
}

class TaskFollowUpTest : public support::ManagerTest {
protected:
    CDisclosureTaskFollowUp followUp;
    const std::string task = "/rs/disclosure/task/";
};

TEST_F(TaskFollowUpTest, ConfirmationsAndUrgingNameTheTask) {
    answer(answerOf("{}"));
    EXPECT_TRUE(followUp.ConfirmByReceiver(L"t-1"));
    EXPECT_EQ(lastCall(), "POST " + task + R"(confirm_by_receive_user {"taskId":"t-1"})");
    EXPECT_TRUE(followUp.UrgeReceivers(L"t-1"));
    EXPECT_EQ(lastCall(), "POST " + task + R"(urge_by_disclosure_user {"taskId":"t-1"})");

    EXPECT_TRUE(followUp.ConfirmByDiscloser(L"t-1", L"已现场交底",
                                            {{L"att-1", L"签到表.pdf", L"file-9", L"9e107d9d372bb6826bd81d3542a419d6",
                                              30000, L"pdf", L"file-10", L"e4d909c290d0fb1ca068ffaddf22cbd0", 4096}}));
    EXPECT_EQ(last().target, task + "confirm_by_disclosure_user");
    EXPECT_EQ(support::pretty(last().body) + "\n",
              support::readText("golden/DisclosureTaskConfirmByDisclosureUserRequest.json"));
}

TEST_F(TaskFollowUpTest, HistoryAndOwnTasksAreAppended) {
    answer(answerOf("[null," + support::readText("golden/DisclosureTaskOperationLogResponse.json") + "]"));
    std::vector<OperationLogRecord> entries(1);
    EXPECT_TRUE(followUp.ListOperationLog(L"t/1", entries));
    EXPECT_EQ(lastCall(), "GET " + task + "list_operation_log_by_taskid/t%2F1 ");
    ASSERT_THAT(entries, SizeIs(2));
    const auto& entry = entries[1];
    EXPECT_EQ(entry.id + L"|" + entry.deptId + L"|" + entry.disclosureTaskId + L"|" + entry.userName + L"|" +
                  entry.refSourceId + L"|" + entry.sourceName + L"|" + entry.sourceUuid + L"|" + entry.sourceMd5 +
                  L"|" + entry.sourceExtension + L"|" + entry.userRealname + L"|" + entry.userHeadUuid,
              L"log-1|dept-1|t-1|li.si|doc-1|模板专项方案.docx|file-41|9e107d9d372bb6826bd81d3542a419d6|docx|李四|"
              L"head-18");
    EXPECT_THAT((std::vector<int64_t>{entry.opDateMills, entry.opType, entry.sourceSize}),
                ElementsAre(1700000000123, 3, 1024));

    answer(answerOf(R"({"totalCount":31,"result":[)" + support::readText("golden/DisclosureTask4StatusResponse.json") +
                    "]}"));
    std::vector<OwnTaskRecord> tasks;
    int32_t total = 0;
    EXPECT_TRUE(followUp.PageOwnTasks({L"dept-1", L"底板", 2, L"", -1, 1702569599999, 1, 30}, tasks, total));
    EXPECT_EQ(lastCall(),
              "GET " + task +
                  "page_disclosure_task_4_status_by_currentuser?currentPage=1&deptId=dept-1&disclosureUsername="
                  "&endDateMills=1702569599999&keyword=%E5%BA%95%E6%9D%BF&pageSize=30&startDateMills=-1&type=2 ");
    EXPECT_EQ(total, 31);
    ASSERT_THAT(tasks, SizeIs(1));
    EXPECT_EQ(tasks[0].id + tasks[0].name, L"t-1地下室底板施工交底");
    EXPECT_THAT((std::vector<int64_t>{tasks[0].planDisclosureDateMills, tasks[0].expiryDateMills,
                                      tasks[0].actualDisclosureDateMills, tasks[0].status}),
                ElementsAre(1699804800000, 1703174400000, 1699891200000, 3));
}

TEST_F(TaskFollowUpTest, ConditionsAreDepartmentsAndPeople) {
    answer(answerOf(support::readText("golden/QueryCondition4DisclosureTaskResponse.json")));
    std::vector<TaskCondition> departments;
    std::vector<TaskCondition> people;
    EXPECT_TRUE(followUp.QueryConditions(departments, people));
    EXPECT_EQ(lastCall(), "GET " + task + "query_condition_4_disclosure_task ");
    ASSERT_TRUE(departments.size() == 1 && people.size() == 1);
    EXPECT_EQ(departments[0].key + departments[0].name + departments[0].headUuid, L"dept-1一分部");
    EXPECT_EQ(people[0].key + people[0].name + people[0].headUuid, L"zhang.san张三head-17");
}

}  // namespace
