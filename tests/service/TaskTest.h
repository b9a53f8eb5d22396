#pragma once

#include "tests/service/TestService.h"

namespace disclosure::testing {

inline const std::string TaskPath = "/rs/disclosure/task/";
inline constexpr auto PagePath = "/rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?deptId=demo-dept-1&";
inline constexpr std::int64_t ADay = 24LL * 60 * 60 * 1000;

/// The body of a save into the demonstration's department; `more` are further members.
inline std::string taskBody(const std::string& id, const std::string& name, const Members& more = {},
                            const std::string& catalog = "demo-catalog-4") {
    return object({{"id", id}, {"deptId", FirstDept}, {"disclosureCatalogId", catalog}, {"name", name}}, more);
}
/// The same with these members as text, a comma before each.
inline std::string taskBody(const std::string& id, const std::string& name, const std::string& more,
                            const std::string& catalog = "demo-catalog-4") {
    std::string body = taskBody(id, name, Members(), catalog);
    return body.insert(body.size() - 1, more);
}

/// Receivers, each with an id of their own.
inline Json people(const std::vector<std::pair<std::string, std::string>>& receivers) {
    std::vector<Json> values;
    for (const auto& [id, username] : receivers)
        values.push_back(object({{"id", id}, {"userName", username}}));
    return list(values);
}

/// A published task: chenwei discloses to liuyang and sunli.
inline std::string publishedBody(const std::string& id, const Members& more = {}) {
    return object({{"id", id},
                   {"deptId", FirstDept},
                   {"disclosureCatalogId", "demo-catalog-4"},
                   {"name", "交底" + id},
                   {"isPublish", 1},
                   {"disclosureUserName", "chenwei"},
                   {"disclosureTaskReceiveUserList", people({{"r1", "liuyang"}, {"r2", "sunli"}})}},
                  more);
}
inline std::string publishedBody(const std::string& id, const std::string& more) {
    std::string body = publishedBody(id);
    return body.insert(body.size() - 1, more);
}

/// A task's link to an uploaded file.
inline Json docJson(const std::string& id, const std::string& name, const std::string& uuid, const std::string& md5,
                    std::int64_t size) {
    return object(
        {{"id", id}, {"ppid", 1001}, {"name", name}, {"uuid", uuid}, {"md5", md5}, {"size", size}, {"sourceType", 1}});
}

/// A task's link to a content of a document.
inline Json filedJson(const std::string& id, const std::string& documentId, const std::string& uuid,
                      const std::string& md5, std::int64_t size) {
    return object({{"id", id},
                   {"name", "图.pdf"},
                   {"uuid", uuid},
                   {"md5", md5},
                   {"size", size},
                   {"sourceType", 0},
                   {"refDocId", documentId}});
}

/// One service with the demonstration's people, and what the tests of the tasks ask of it.
class TaskTest : public ::testing::Test {
protected:
    Answer save(const std::string& body) { return demo.post(TaskPath + "save", body); }
    Answer update(const std::string& id, const std::string& more) {
        return demo.post(TaskPath + "update", R"({"id":")" + id + "\"" + more + "}");
    }
    Answer update(const std::string& id, const Members& more) {
        return demo.post(TaskPath + "update", object({{"id", id}}, more));
    }
    Answer by(const std::string& username, const std::string& operation, const std::string& taskId,
              const std::string& more = {}) {
        return service.loggedIn(username).post(TaskPath + operation, R"({"taskId":")" + taskId + "\"" + more + "}");
    }
    /// See `Answer::at`.
    std::string task(const std::string& id, const std::string& places) {
        return demo.get(TaskPath + "query_disclosure_task_by_id/" + id).at(places);
    }
    int status(const std::string& id) { return std::stoi(task(id, "status")); }
    std::int64_t version(const std::string& id) { return std::stoll(task(id, "updateDateMills")); }
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
