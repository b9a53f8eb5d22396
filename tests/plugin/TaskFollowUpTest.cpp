#include <gmock/gmock.h>

#include "plugin/service/CDisclosureTaskFollowUp.h"
#include "tests/plugin/ManagerTest.h"
#include "tests/support/Golden.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using support::readText;
using testing::ElementsAre;
using testing::SizeIs;

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
              readText("golden/DisclosureTaskConfirmByDisclosureUserRequest.json"));
}

TEST_F(TaskFollowUpTest, HistoryAndOwnTasksAreAppended) {
    answer(answerOf("[null," + readText("golden/DisclosureTaskOperationLogResponse.json") + "]"));
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

    answer(answerOf(R"({"totalCount":31,"result":[)" + readText("golden/DisclosureTask4StatusResponse.json") + "]}"));
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
    answer(answerOf(readText("golden/QueryCondition4DisclosureTaskResponse.json")));
    std::vector<TaskCondition> departments;
    std::vector<TaskCondition> people;
    EXPECT_TRUE(followUp.QueryConditions(departments, people));
    EXPECT_EQ(lastCall(), "GET " + task + "query_condition_4_disclosure_task ");
    ASSERT_TRUE(departments.size() == 1 && people.size() == 1);
    EXPECT_EQ(departments[0].key + departments[0].name + departments[0].headUuid, L"dept-1一分部");
    EXPECT_EQ(people[0].key + people[0].name + people[0].headUuid, L"zhang.san张三head-17");
}

}  // namespace
