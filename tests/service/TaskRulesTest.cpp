#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

class TaskRules : public TaskTest {
protected:
    std::string docs(int from, int to) const {
        std::string list;
        for (int i = from; i < to; ++i)
            list += (i > from ? "," : "") +
                    docJson("d" + std::to_string(i), "书" + std::to_string(i) + ".pdf", m_uuid, m_md5, 5);
        return "[" + list + "]";
    }

private:
    const std::string m_uuid = std::string(32, 'a');
    const std::string m_md5 = service.addFile(FirstDept, m_uuid, "12345");
};

TEST_F(TaskRules, ATaskComesBackAsItWasSaved) {
    const std::string body = taskBody(
        "t1", "　桩基 100%_验收 ",
        R"(,"disclosureUserName":"chenwei","constructionStartDateMills":1700000000000,"expiryDateMills":1800000000000,)"
        R"("remark":"第一行\n第二行","disclosureTaskReceiveUserList":[{"id":"b","userName":"sunli"},{"id":"a","userName":)"
        R"("liuyang"}],"disclosureTaskViewportList":[{"id":"v","ppid":1001,"viewportId":"vp"}],"disclosureTaskNodeList":)"
        R"([{"id":"n","ppid":1001,"nodeId":"np"}],"disclosureTaskDocList":)" +
            docs(0, 2));
    ASSERT_EQ(save(body).code(), 200);
    EXPECT_EQ(task("t1",
                   "name deptName disclosureUserRealname constructionStartDateMills planDisclosureDateMills remark "
                   "updateBy updateDateMills"),
              "桩基 100%_验收|第一项目部|陈伟|1700000000000|0|第一行\n第二行|张建国|" + std::to_string(service.now));
    EXPECT_EQ(task("t1",
                   "disclosureTaskReceiveUserList/0/userRealname disclosureTaskViewportList/0/viewportId "
                   "disclosureTaskNodeList/0/nodeId disclosureTaskDocList/1/name"),
              "孙丽|vp|np|书1.pdf");

    service.now += 1000;
    EXPECT_EQ(save(body).code(), 200) << "a client that saw no answer asks again";
    EXPECT_EQ(version("t1"), service.now - 1000) << "nothing has changed";
    const auto byAnother = [&] { return service.loggedIn("editor").post(TaskPath + "save", taskBody("t1", "别的")); };
    EXPECT_EQ(byAnother().code(), 409);
    EXPECT_EQ(
        save(taskBody("t1", "改过", R"(,"disclosureTaskReceiveUserList":[{"id":"a","userName":"liuyang"}])")).code(),
        200)
        << "and its user may have gone on typing";
    EXPECT_EQ(task("t1", "name disclosureTaskReceiveUserList disclosureTaskDocList"), "改过|1|0");
    ASSERT_EQ(save(publishedBody("t2")).code(), 200);
    EXPECT_EQ(save(taskBody("t2", "别的")).code(), 409) << "published";
    EXPECT_EQ(taskNumber("demo-catalog-4"), 2);
    EXPECT_EQ(save(taskBody("", "没有编号")).code(), 200);
    EXPECT_EQ(taskNumber("demo-catalog-4"), 3);
}

TEST_F(TaskRules, WhatMayNotBeIsRefusedAndNothingIsStored) {
    const std::pair<std::string, std::string> refused[] = {
        {taskBody("x", "　 "), "任务名称不能为空"},
        {taskBody("x", "\\u2028\\u200b\\u3164\\ufeff\\u202f"), "任务名称不能为空"},
        {taskBody("x", std::string(127, 'a') + "🏗"), "任务名称不能超过128个字符"},
        {taskBody("x", std::string(129, 'a')), "任务名称不能超过128个字符"},
        {taskBody("x", std::string(10'000, 'a')), "任务名称不能超过128个字符"},
        {taskBody("x", "a\\u0007b"), "任务名称不能包含控制字符"},
        {taskBody("x y", "a"), "任务编号只能由字母、数字、下划线和连字符组成，且不超过64个字符"},
        {taskBody("x", "a", "", "none"), "目录不存在或已被删除"},
        {taskBody("x", "a", R"(,"constructionStartDateMills":2,"constructionEndDateMills":1)"),
         "施工开始日期不得大于施工结束日期"},
        {taskBody("x", "a", R"(,"expiryDateMills":9223372036854775807)"), "日期超出允许的范围"},
        {taskBody("x", "a", R"(,"disclosureUserName":"nobody")"), "交底人不是本组织的人员"},
        {taskBody("x", "a", R"(,"disclosureTaskReceiveUserList":[{"userName":"nobody"}])"),
         "接受交底人不是本组织的人员：nobody"},
        {taskBody("x", "a", R"(,"disclosureTaskReceiveUserList":[{"userName":")" + std::string(129, 'a') + R"("}])"),
         "关联项的内容过长或包含控制字符"},
        {taskBody("x", "a", R"(,"disclosureTaskReceiveUserList":[{"userName":"sunli"},{"userName":"sunli"}])"),
         "接受交底人重复"},
        {taskBody("x", "a", R"(,"isPublish":1)"), "请选择交底人"},
        {taskBody("x", "a", R"(,"isPublish":1,"disclosureUserName":"chenwei")"), "请选择接受交底人"},
        {taskBody("x", "a", R"(,"disclosureTaskDocList":)" + docs(0, 11)), "最多可关联10份资料"},
        {taskBody("x", "a", R"(,"disclosureTaskNodeList":[{"ppid":1,"nodeId":"n"},{"ppid":1,"nodeId":"n"}])"),
         "关联的模型重复"},
    };
    for (const auto& [body, msg] : refused) {
        const Answer answer = save(body);
        EXPECT_EQ(answer.status, 200) << body.substr(0, 200);
        EXPECT_EQ(answer.msg(), msg) << body.substr(0, 200);
    }
    EXPECT_EQ(save(R"({"deptId":"demo-dept-1","disclosureCatalogId":"demo-catalog-4","name":7})").status, 400);
    EXPECT_EQ(save(taskBody("x", "a", R"(,"isPublish":2)")).status, 400);
    EXPECT_EQ(service.number("SELECT (SELECT COUNT(*) FROM task) + (SELECT COUNT(*) FROM task_log)"), 0);

    const auto links = [](const std::string& key, int count) {
        std::string list;
        for (int i = 0; i < count; ++i)
            list += (i ? "," : "") + (R"({"ppid":1,")" + key + R"(":")" + std::to_string(i) + "\"}");
        return list;
    };
    EXPECT_EQ(save(taskBody("y", "a",
                            R"(,"constructionStartDateMills":1,"constructionEndDateMills":1,)"
                            R"("disclosureTaskViewportList":[)" +
                                links("viewportId", 6) + R"(],"disclosureTaskNodeList":[)" + links("nodeId", 4) +
                                R"(],"disclosureTaskDocList":)" + docs(0, 10)))
                  .code(),
              200)
        << "ten of each are accepted";
    EXPECT_EQ(update("y", R"(,"saveDisclosureTaskNodeList":[{"ppid":1,"nodeId":"more"}])").msg(),
              "最多可关联10个视口或构件");
    EXPECT_EQ(update("y", R"(,"saveDisclosureTaskDocList":)" + docs(9, 11)).msg(), "最多可关联10份资料");
    EXPECT_EQ(update("y", R"(,"delDisclosureTaskDocIds":["d0"],"saveDisclosureTaskDocList":)" + docs(10, 11)).code(),
              200);
}

TEST_F(TaskRules, NamesOfAnyScriptStayAsTheyAre) {
    int number = 0;
    for (const std::string& name : {std::string(126, 'a') + "🏗", std::string("👷\u200d♂\ufe0f 交底"),
                                    std::string("\u202eأساس\u202c"), std::string("<b>粗</b>&lt;'")}) {
        const std::string id = "t" + std::to_string(++number);
        ASSERT_EQ(save(taskBody(id, name)).code(), 200) << name;
        EXPECT_EQ(task(id, "name"), name);
    }
}

TEST_F(TaskRules, WhoHasLeftStaysInATaskButIsNotChosenAgain) {
    const std::string receivers = R"(,"saveDisclosureTaskReceiveUserList":[{"id":"c","userName":"chenwei"}])";
    ASSERT_EQ(save(publishedBody("p")).code(), 200);
    ASSERT_EQ(save(taskBody("t", "计划",
                            R"(,"disclosureUserName":"sunli","disclosureTaskReceiveUserList":)"
                            R"([{"id":"a","userName":"liuyang"}])"))
                  .code(),
              200);
    service.run("DELETE FROM member WHERE username IN ('sunli', 'liuyang', 'chenwei')");
    EXPECT_EQ(update("t", R"(,"name":"改名")").code(), 200);
    EXPECT_EQ(update("t", receivers).msg(), "接受交底人不是本组织的人员：chenwei");
    EXPECT_EQ(update("t", R"(,"disclosureUserName":"chenwei")").msg(), "交底人不是本组织的人员");
    EXPECT_EQ(update("t", R"(,"isPublish":1)").code(), 200);
    EXPECT_EQ(task("t", "disclosureUserRealname disclosureTaskReceiveUserList/0/userRealname"), "孙丽|刘洋");
}

TEST_F(TaskRules, AnUpdateChangesWhatItNamesAndKeepsTheRest) {
    ASSERT_EQ(
        save(taskBody(
                 "t", "旧名",
                 R"(,"remark":"备注","planDisclosureDateMills":5,"expiryDateMills":6,)"
                 R"("disclosureTaskReceiveUserList":[{"id":"a","userName":"liuyang"},{"id":"b","userName":"sunli"}])"))
            .code(),
        200);
    const std::string change = R"(,"name":"新名","planDisclosureDateMills":0,"delDisclosureTaskReceiveUserIds":["a"],)"
                               R"("saveDisclosureTaskReceiveUserList":[{"id":"c","userName":"chenwei"}])";
    EXPECT_EQ(update("t", change).code(), 200);
    EXPECT_EQ(task("t",
                   "name planDisclosureDateMills expiryDateMills remark disclosureTaskReceiveUserList "
                   "disclosureTaskReceiveUserList/0/userName disclosureTaskReceiveUserList/1/userName"),
              "新名|0|6|备注|2|sunli|chenwei");
    EXPECT_EQ(version("t"), service.now + 1) << "grows even while the clock stands still";
    EXPECT_EQ(update("t", change).code(), 200);
    EXPECT_EQ(version("t"), service.now + 1) << "asked again, it changes nothing";
    EXPECT_EQ(update("t", R"(,"name":"  ")").code(), 422);
    EXPECT_EQ(update("none", R"(,"name":"a")").code(), 404);
}

TEST_F(TaskRules, ANewerVersionIsNotOverwritten) {
    ASSERT_EQ(save(taskBody("t", "一")).code(), 200);
    const std::int64_t seen = version("t");
    const auto updateSeen = [&](const std::string& name, const std::string& header) {
        return demo.raw("POST " + TaskPath + "update HTTP/1.1\r\nHost: localhost\r\nCookie: " + demo.cookie() +
                        "\r\nContent-Type: application/json\r\nX-Task-Version: " + header + "\r\nContent-Length: " +
                        std::to_string(name.size() + 20) + "\r\n\r\n{\"id\":\"t\",\"name\":\"" + name + "\"}");
    };
    EXPECT_EQ(updateSeen("二", std::to_string(seen)).code(), 200);
    const Answer late = updateSeen("三", std::to_string(seen));
    EXPECT_EQ(late.status, 200);
    EXPECT_EQ(late.code(), 409);
    EXPECT_EQ(late.msg(), "任务已被他人修改，请核对后再保存");
    EXPECT_EQ(updateSeen("二", std::to_string(seen)).code(), 200) << "the first one again";
    EXPECT_EQ(updateSeen("四", "7x").status, 400);
    EXPECT_EQ(task("t", "name"), "二");
    EXPECT_EQ(update("t", R"(,"name":"五")").code(), 200) << "a client that names none";
}

TEST_F(TaskRules, WhoMayDeleteMayMoveAndNothingElse) {
    service.database().connect()->putRights(FirstDept, "reader", {Right::DeleteTasks});
    save(taskBody("a", "任务"));
    Client client = service.loggedIn("reader");
    const auto change = [&](const char* what) {
        return client.post(TaskPath + "update", std::string(R"({"id":"a")") + what + "}").code();
    };
    EXPECT_EQ(change(R"(,"name":"改")"), 403);
    EXPECT_EQ(change(R"(,"name":"改","disclosureCatalogId":"demo-catalog-17")"), 403);
    EXPECT_EQ(change(R"(,"disclosureCatalogId":"demo-catalog-17")"), 200);
    EXPECT_EQ(change(R"(,"disclosureCatalogId":"demo-catalog-17")"), 200) << "the answer to the first may be lost";
}

TEST_F(TaskRules, CountsFollowMovesAndDeletions) {
    for (const char* id : {"a", "b", "c"})
        ASSERT_EQ(save(taskBody(id, id)).code(), 200);
    ASSERT_EQ(save(publishedBody("p")).code(), 200);
    EXPECT_EQ(update("a", R"(,"disclosureCatalogId":"demo-catalog-17")").code(), 200);
    EXPECT_EQ(update("p", R"(,"disclosureCatalogId":"demo-catalog-17")").code(), 200) << "a published one may move";
    EXPECT_EQ(update("b", R"(,"disclosureCatalogId":"none")").code(), 404);
    EXPECT_EQ(taskNumber("demo-catalog-4"), 2);
    EXPECT_EQ(taskNumber("demo-catalog-17"), 2);
    page("disclosureCatalogId=demo-catalog-2");
    EXPECT_EQ(total, 2) << "the subtree of what is above demo-catalog-4";

    const auto remove = [&](const std::string& ids) {
        return demo.del(TaskPath + "batchdelete", R"({"ids":[)" + ids + "]}");
    };
    EXPECT_EQ(remove(R"("a","none")").code(), 404);
    EXPECT_EQ(taskNumber("demo-catalog-17"), 2) << "all or none";
    EXPECT_EQ(remove(R"("a","b","a")").code(), 200);
    EXPECT_EQ(remove("").msg(), "请选择要删除的任务");
    std::string many = R"("x0")";
    for (int i = 1; i <= 1000; ++i)
        many += R"(,"x)" + std::to_string(i) + '"';
    EXPECT_EQ(remove(many).msg(), "一次最多删除1000个任务");
    EXPECT_EQ(taskNumber("demo-catalog-4"), 1);
    EXPECT_EQ(demo.del(DeletePath, R"({"id":"demo-catalog-2","isContainsTask":1})").code(), 200);
    EXPECT_EQ(page("disclosureCatalogId="), Ids{"p"});
    EXPECT_EQ(total, 1);
    EXPECT_EQ(page("keyword=c"), Ids{}) << "the index of names has forgotten it";
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task_log WHERE kind = 5"), 3);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task_receiver"), 2);
}

TEST_F(TaskRules, StatusFollowsFromPublishingConfirmationsAndTheDay) {
    ASSERT_EQ(save(taskBody("plan", "计划")).code(), 200);
    ASSERT_EQ(save(publishedBody("t", R"(,"expiryDateMills":)" + std::to_string(service.now + ADay))).code(), 200);
    EXPECT_EQ(status("plan"), 1);
    EXPECT_EQ(status("t"), 1);
    EXPECT_EQ(by("liuyang", "confirm_by_receive_user", "plan").code(), 403);
    EXPECT_EQ(by("liuyang", "confirm_by_receive_user", "t").code(), 200);
    EXPECT_EQ(status("t"), 3);
    const std::int64_t confirmed = version("t");
    service.now += 5000;
    EXPECT_EQ(by("liuyang", "confirm_by_receive_user", "t").code(), 200) << "again";
    EXPECT_EQ(version("t"), confirmed);
    EXPECT_EQ(by("chenwei", "confirm_by_receive_user", "t").code(), 403);
    EXPECT_EQ(by("liuyang", "confirm_by_disclosure_user", "t").code(), 403);

    service.now += 2 * ADay - 6000;
    demo.login("demo", "demo");
    EXPECT_EQ(status("t"), 3) << "the last day is in time";
    EXPECT_EQ(page("status=3"), Ids{"t"});
    service.now += 1000;
    EXPECT_EQ(status("t"), 4);
    EXPECT_EQ(page("status=4"), Ids{"t"});
    EXPECT_EQ(page("status=3"), Ids{});
    EXPECT_EQ(page("status=1"), Ids{"plan"});

    service.run("UPDATE stored_file SET uploaded_by = 'chenwei'");
    EXPECT_EQ(
        by("chenwei", "confirm_by_disclosure_user", "t", R"(,"confirmRemark":"已讲清","attachementList":)" + docs(0, 1))
            .code(),
        200);
    EXPECT_EQ(status("t"), 4) << "one has not confirmed yet";
    EXPECT_EQ(by("sunli", "confirm_by_receive_user", "t").code(), 200);
    EXPECT_EQ(status("t"), 2);
    EXPECT_EQ(page("status=2"), Ids{"t"});
    EXPECT_EQ(page("status=4"), Ids{});
    EXPECT_EQ(task("t", "actualDisclosureDateMills"), task("t", "confirmDateMills"));
    EXPECT_EQ(task("t", "attachementList/0/name"), "书0.pdf");
    EXPECT_EQ(by("chenwei", "urge_by_disclosure_user", "t").code(), 409) << "nobody is left to urge";
}

TEST_F(TaskRules, APublishedTaskIsNotEditedAndUrgedNotTooOften) {
    ASSERT_EQ(save(publishedBody("t")).code(), 200);
    EXPECT_EQ(update("t", R"(,"name":"改")").msg(), "已发布的任务暂不支持编辑");
    EXPECT_EQ(update("t", R"(,"isPublish":0)").code(), 409);
    EXPECT_EQ(by("demo", "urge_by_disclosure_user", "t").code(), 403);
    EXPECT_EQ(by("chenwei", "urge_by_disclosure_user", "t").code(), 200);
    EXPECT_EQ(by("chenwei", "urge_by_disclosure_user", "t").code(), 409);
    service.now += 10 * 60 * 1000;
    EXPECT_EQ(by("chenwei", "urge_by_disclosure_user", "t").code(), 200);
    EXPECT_EQ(save(taskBody("plan", "计划", R"(,"disclosureUserName":"chenwei")")).code(), 200);
    EXPECT_EQ(by("chenwei", "urge_by_disclosure_user", "plan").msg(), "任务尚未发布");
    EXPECT_EQ(by("chenwei", "confirm_by_disclosure_user", "plan").msg(), "任务尚未发布");
}

TEST_F(TaskRules, EveryChangeIsInTheLog) {
    ASSERT_EQ(save(taskBody("t", "一")).code(), 200);
    update("t", R"(,"name":"二")");
    update("t", R"(,"disclosureCatalogId":"demo-catalog-17")");
    update(
        "t",
        R"(,"isPublish":1,"disclosureUserName":"chenwei","saveDisclosureTaskReceiveUserList":[{"userName":"sunli"}])");
    by("chenwei", "urge_by_disclosure_user", "t");
    by("sunli", "confirm_by_receive_user", "t");
    by("chenwei", "confirm_by_disclosure_user", "t");
    const std::string seen =
        R"({"id":"l1","deptId":"demo-dept-1","disclosureTaskId":"t","opType":101,"refSourceId":"d"})";
    EXPECT_EQ(demo.post(TaskPath + "save_operation_log", seen).code(), 200);
    EXPECT_EQ(demo.post(TaskPath + "save_operation_log", seen).code(), 200) << "again";
    EXPECT_EQ(demo.post(TaskPath + "save_operation_log", R"({"disclosureTaskId":"t","opType":6})").code(), 422)
        << "a client may not claim a confirmation";
    const auto json = demo.get(TaskPath + "list_operation_log_by_taskid/t").json();
    std::vector<int> kinds;
    for (const auto& entry : json["result"].GetArray())
        kinds.push_back(entry["opType"].GetInt());
    EXPECT_EQ(kinds, (std::vector<int>{1, 2, 4, 3, 8, 6, 7, 101}));
    EXPECT_EQ(demo.get(TaskPath + "list_operation_log_by_taskid/t").at("5/userRealname"), "孙丽");

    service.run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 9998) INSERT INTO task_log "
        "(dept_id, task_id, log_id, username, op_time, kind) SELECT 'demo-dept-1', 't', 'n' || i, "
        "CASE i % 2 WHEN 0 THEN 'demo' ELSE 'sunli' END, 0, 100 FROM n");
    struct Row {
        const char* query;
        std::size_t size;
        const char* last;
    };
    for (const Row& row : {Row{"", 1000, "n9998"}, Row{"?page=2&kind=", 1000, "n8998"}, Row{"?page=11", 6, ""},
                           Row{"?person=sunli", 1000, "n9997"}, Row{"?kind=101&person=demo", 1, "l1"},
                           Row{"?page=5&person=demo&kind=100", 999, "n1998"}, Row{"?person=nobody", 0, ""}}) {
        const Answer page = demo.get(TaskPath + "list_operation_log_by_taskid/t" + row.query);
        ASSERT_EQ(page.json()["result"].Size(), row.size) << row.query;
        if (*row.last) {
            EXPECT_EQ(page.at(std::to_string(row.size - 1) + "/id"), row.last) << row.query;
        }
    }
    for (const char* query : {"?page=0", "?kind=-1", "?page=x"})
        EXPECT_EQ(demo.get(TaskPath + "list_operation_log_by_taskid/t" + query).status, 400) << query;
    const auto note = [&](const std::string& id) {
        return demo.post(TaskPath + "save_operation_log",
                         R"({"id":")" + id + R"(","disclosureTaskId":"t","opType":101})");
    };
    EXPECT_EQ(note("last").code(), 200);
    EXPECT_EQ(note("more").msg(), "该任务的操作记录已达上限");
    EXPECT_EQ(note("n1").msg(), "操作记录编号已被使用");
}

TEST_F(TaskRules, AConfirmationAmongManyWritesOneReceiver) {
    ASSERT_EQ(save(publishedBody("t")).code(), 200);
    service.run(
        "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 499) INSERT INTO task_receiver "
        "SELECT 'demo-dept-1', (SELECT rid FROM task), i, 'r' || i, 'p' || i, 0, 1 FROM n");
    service.run("CREATE TABLE written (row INTEGER)");
    for (const char* change : {"INSERT", "UPDATE", "DELETE"})
        service.run(std::string("CREATE TRIGGER written_") + change + " AFTER " + change +
                    " ON task_receiver BEGIN INSERT INTO written VALUES (1); END");
    EXPECT_EQ(by("sunli", "confirm_by_receive_user", "t").code(), 200);
    EXPECT_EQ(status("t"), 3);
    EXPECT_EQ(by("liuyang", "confirm_by_receive_user", "t").code(), 200);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task_receiver WHERE confirmed_at > 0"), 2);
    EXPECT_LE(service.number("SELECT COUNT(*) FROM written"), 4) << "each away and put back";
}

TEST_F(TaskRules, RemindersAreSetOnceAndThenChanged) {
    const std::string query = TaskPath + "query_push_config?deptId=demo-dept-1";
    EXPECT_EQ(demo.get(query).at("id"), "");
    EXPECT_EQ(demo.post(TaskPath + "update_push_config", R"({"id":"c"})").code(), 404);
    const std::string first =
        R"({"id":"c","deptId":"demo-dept-1","isNotifyAdvance":1,"daysNotifyAdvance":3,"advanceNotifyFrequency":2})";
    EXPECT_EQ(demo.post(TaskPath + "save_push_config", first).code(), 200);
    EXPECT_EQ(demo.post(TaskPath + "save_push_config", first).code(), 200) << "again";
    EXPECT_EQ(demo.post(TaskPath + "save_push_config", R"({"id":"other","deptId":"demo-dept-1"})").code(), 409);
    for (const auto& [value, msg] : {std::pair(R"("daysNotifyAdvance":31)", "提前提醒的天数应为0到30天"),
                                     {R"("daysNotifyAdvance":-1)", "提前提醒的天数应为0到30天"},
                                     {R"("advanceNotifyFrequency":0)", "请选择提醒频率"},
                                     {R"("overdueNotifyFrequency":3)", "请选择提醒频率"}}) {
        for (const char* operation : {"save_push_config", "update_push_config"}) {
            const Answer answer =
                demo.post(TaskPath + operation, std::string(R"({"id":"c","deptId":"demo-dept-1",)") + value + "}");
            EXPECT_EQ(answer.status, 200) << value;
            EXPECT_EQ(answer.msg(), msg) << value;
        }
    }
    EXPECT_EQ(
        demo.post(TaskPath + "update_push_config", R"({"id":"c","daysNotifyAdvance":30,"isNotifyOverdue":1})").code(),
        200);
    EXPECT_EQ(demo.get(query).at("daysNotifyAdvance isNotifyOverdue"), "30|1");
}

}  // namespace
}  // namespace disclosure::testing
