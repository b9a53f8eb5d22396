#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/service/TestService.h"

namespace disclosure::testing {

inline const std::string TaskPath = "/rs/disclosure/task/";
inline constexpr auto PagePath = "/rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?deptId=demo-dept-1&";
inline constexpr std::int64_t ADay = 24LL * 60 * 60 * 1000;

/// The body of a save into the demonstration's department; `more` are further members, with a comma before them.
inline std::string taskBody(const std::string& id, const std::string& name, const std::string& more = {},
                            const std::string& catalog = "demo-catalog-4") {
    return R"({"id":")" + id + R"(","deptId":"demo-dept-1","disclosureCatalogId":")" + catalog + R"(","name":")" +
           name + "\"" + more + "}";
}

/// A published task: chenwei discloses to liuyang and sunli.
inline std::string publishedBody(const std::string& id, const std::string& more = {}) {
    return taskBody(id, "交底" + id,
                    R"(,"isPublish":1,"disclosureUserName":"chenwei","disclosureTaskReceiveUserList":[{"id":"r1",)"
                    R"("userName":"liuyang"},{"id":"r2","userName":"sunli"}])" +
                        more);
}

/// A task's link to an uploaded file.
inline std::string docJson(const std::string& id, const std::string& name, const std::string& uuid,
                           const std::string& md5, std::int64_t size) {
    return R"({"id":")" + id + R"(","ppid":1001,"name":")" + name + R"(","uuid":")" + uuid + R"(","md5":")" + md5 +
           R"(","size":)" + std::to_string(size) + R"(,"sourceType":1})";
}

/// One service with the demonstration's people, and what the tests of the tasks ask of it.
class TaskTest : public ::testing::Test {
protected:
    Answer save(const std::string& body) { return demo.post(TaskPath + "save", body); }
    Answer update(const std::string& id, const std::string& more) {
        return demo.post(TaskPath + "update", R"({"id":")" + id + "\"" + more + "}");
    }
    Answer by(const std::string& username, const std::string& operation, const std::string& taskId,
              const std::string& more = {}) {
        return service.loggedIn(username).post(TaskPath + operation, R"({"taskId":")" + taskId + "\"" + more + "}");
    }
    rapidjson::Document task(const std::string& id) {
        auto json = demo.get(TaskPath + "query_disclosure_task_by_id/" + id).json();
        EXPECT_EQ(json["code"].GetInt(), 200) << id;
        return json;
    }
    int status(const std::string& id) { return task(id)["result"]["status"].GetInt(); }
    std::int64_t version(const std::string& id) { return task(id)["result"]["updateDateMills"].GetInt64(); }
    /// The ids of one page in their order; the total goes to `total`.
    std::vector<std::string> page(const std::string& query) {
        const Answer answer = demo.get(PagePath + query);
        EXPECT_EQ(answer.code(), 200) << query << answer.body;
        const auto json = answer.json();
        std::vector<std::string> ids;
        for (const auto& t : json["result"]["result"].GetArray())
            ids.emplace_back(t["id"].GetString());
        total = json["result"]["totalCount"].GetInt64();
        return ids;
    }
    int taskNumber(const std::string& catalogId) {
        const auto json = demo.get(std::string(ListPath) + FirstDept).json();
        for (const auto& c : json["result"].GetArray()) {
            if (c["id"].GetString() == catalogId)
                return c["taskNumber"].GetInt();
        }
        return -1;
    }

    TestService service;
    Client demo{service.loggedIn("demo")};
    std::int64_t total = 0;
};

using Ids = std::vector<std::string>;

}  // namespace disclosure::testing
