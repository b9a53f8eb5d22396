#include <algorithm>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "tests/service/Described.h"
#include "tests/service/TaskTest.h"
#include "tests/support/Golden.h"

namespace disclosure::testing {
namespace {

using Leaves = std::map<std::string, std::string>;

/// Every text, number and flag by where it stands: "list[0].name" -> "\"text\"".
void collect(const rapidjson::Value& value, const std::string& place, Leaves& leaves) {
    if (value.IsObject()) {
        for (const auto& member : value.GetObject())
            collect(member.value, place + (place.empty() ? "" : ".") + member.name.GetString(), leaves);
    } else if (value.IsArray()) {
        for (rapidjson::SizeType i = 0; i < value.Size(); ++i)
            collect(value[i], place + "[" + std::to_string(i) + "]", leaves);
    } else {
        rapidjson::StringBuffer text;
        rapidjson::Writer<rapidjson::StringBuffer> writer(text);
        value.Accept(writer);
        leaves[place] = text.GetString();
    }
}

Leaves leavesOf(const rapidjson::Value& value) {
    Leaves leaves;
    collect(value, "", leaves);
    return leaves;
}

/// The places with the kind of what stands there, whatever it is and however often.
std::set<std::string> shapeOf(const rapidjson::Value& value) {
    std::set<std::string> shape;
    for (const auto& [where, leaf] : leavesOf(value)) {
        std::string place = where;
        for (auto at = place.find('['); at != std::string::npos; at = place.find('[', at + 1))
            place.erase(at + 1, place.find(']', at) - at - 1);
        const char first = leaf[0];
        const bool isFlag = first == 't' || first == 'f';
        shape.insert(place + (first == '"' ? " text" : isFlag ? " flag" : first == 'n' ? " null" : " number"));
    }
    return shape;
}

rapidjson::Document golden(const std::string& name) {
    rapidjson::Document document;
    document.Parse(support::readText("golden/" + name + ".json").c_str());
    EXPECT_TRUE(document.IsObject()) << name;
    return document;
}

/// The records that the client is held against, in a department of their people.
class GoldenRecords : public ::testing::Test {
protected:
    GoldenRecords() {
        const auto store = service.database().connect();
        store->putDepartment({"dept-1", "一分部", ""});
        const Passwords passwords(Passwords::Cost::Lowest);
        for (const char* name : {"zhang.san", "li.si", "wang.wu", "zhao.liu"}) {
            store->putPerson({name, name, "head", "dept-1", passwords.hash(name)});
            store->putMember("dept-1", name);
        }
        store->putRights("dept-1", "zhao.liu", {Right::EditCatalogs, Right::EditTasks, Right::DeleteTasks});
        // Uploads of their day, of which only the rows are looked at here.
        const auto file = [&](const char* uuid, const char* md5, std::int64_t size, const char* by) {
            store->addFile({{"dept-1", uuid}, uuid, "", md5, size, by, service.now});
        };
        file("file-42", "e4d909c290d0fb1ca068ffaddf22cbd0", 2048, "zhao.liu");
        file("file-9", "9e107d9d372bb6826bd81d3542a419d6", 30000, "zhang.san");
        file("file-10", "e4d909c290d0fb1ca068ffaddf22cbd0", 4096, "zhang.san");
        Document document;
        document.deptId = "dept-1";
        document.id = "store-5";
        document.folderId = TopFolder;
        document.uuid = "file-41";
        document.md5 = "9e107d9d372bb6826bd81d3542a419d6";
        document.size = 1024;
        store->addDocument(document);
        const std::string top = "5b2c0f3e-8a41-4d7c-9c59-0d1f6a7be200";
        send("zhao.liu", "POST", SavePath, saveBody("dept-1", top, "全部", ""));
        for (const char* id : {"c-1", "c-2"})
            send("zhao.liu", "POST", SavePath, saveBody("dept-1", id, id, top));
    }
    rapidjson::Document send(const std::string& person, const std::string& method, const std::string& target,
                             const std::string& body = {}) {
        const Answer answer = service.loggedIn(person).send(method, target, body);
        EXPECT_EQ(answer.code(), 200) << target << answer.body;
        expectDescribed(method, target, answer);
        return answer.json();
    }
    /// Sends the record, in which `edit` replaces a text.
    void give(const std::string& person, const std::string& method, const std::string& target, const std::string& name,
              const std::pair<std::string, std::string>& edit = {}) {
        std::string body = support::readText("golden/" + name + ".json");
        if (const auto at = body.find(edit.first); !edit.first.empty() && at != std::string::npos)
            body.replace(at, edit.first.size(), edit.second);
        EXPECT_EQ(shapeOf(send(person, method, target, body)), shapeOf(golden("ResponseEntityResultState")));
    }
    /// All that the record says is in what is stored, but at these places.
    static void expectKept(const std::string& name, const rapidjson::Value& stored, const std::set<std::string>& but) {
        const Leaves kept = leavesOf(stored);
        std::set<std::string> lost;
        for (const auto& [place, leaf] : leavesOf(golden(name))) {
            const auto at = kept.find(place);
            if (at == kept.end() || at->second != leaf)
                lost.insert(place);
        }
        EXPECT_EQ(lost, but) << name;
    }
    rapidjson::Document task() { return send("zhao.liu", "GET", TaskPath + "query_disclosure_task_by_id/t-1"); }

    TestService service;
};

TEST_F(GoldenRecords, OfCatalogsAreTakenAndKept) {
    const auto catalogs = [&] { return send("zhao.liu", "GET", ListPath + std::string("dept-1")); };
    give("zhao.liu", "POST", SavePath, "DisclosureCatalogSaveRequest");
    EXPECT_EQ(shapeOf(catalogs()), shapeOf(golden("ResponseEntityListDisclosureCatalogResponse")));
    expectKept("DisclosureCatalogSaveRequest", catalogs()["result"][3], {"deptId"});
    give("zhao.liu", "POST", UpdatePath, "DisclosureCatalogUpdateRequest");
    expectKept("DisclosureCatalogUpdateRequest", catalogs()["result"][3], {});
    send("zhao.liu", "POST", SavePath, saveBody("dept-1", "last", "后", "5b2c0f3e-8a41-4d7c-9c59-0d1f6a7be200"));
    give("zhao.liu", "POST", MovePath, "DisclosureCatalogMoveRequest");
    expectKept("DisclosureCatalogUpdateRequest", catalogs()["result"][4], {});
    give("zhao.liu", "DELETE", DeletePath, "DisclosureCatalogDelRequest");
    EXPECT_EQ(catalogs()["result"].Size(), 4U);
}

TEST_F(GoldenRecords, OfTasksAreTakenAndKept) {
    // The request to save has a published task; to change it, it must not be.
    give("zhao.liu", "POST", TaskPath + "save", "DisclosureTaskSaveRequest", {"\"isPublish\": 1", "\"isPublish\": 0"});
    expectKept("DisclosureTaskSaveRequest", task()["result"], {"isPublish"});
    give("zhao.liu", "POST", TaskPath + "update", "DisclosureTaskUpdateRequest");
    auto stored = task();
    for (const char* list : {"ReceiveUser", "Viewport", "Node", "Doc"}) {
        const std::string key = std::string("disclosureTask") + list + "List";
        stored["result"].AddMember(rapidjson::Value(("saveD" + key.substr(1)).c_str(), stored.GetAllocator()),
                                   stored["result"][key.c_str()], stored.GetAllocator());
    }
    expectKept("DisclosureTaskUpdateRequest", stored["result"],
               {"delDisclosureTaskDocIds[0]", "delDisclosureTaskNodeIds[0]", "delDisclosureTaskReceiveUserIds[0]",
                "delDisclosureTaskReceiveUserIds[1]", "delDisclosureTaskViewportIds[0]"});
    EXPECT_EQ(stored["result"]["saveDisclosureTaskDocList"].Size(), 1U);

    const Json second = object({{"id", "t-2"}, {"deptId", "dept-1"}, {"disclosureCatalogId", "c-1"}, {"name", "二"}});
    send("zhao.liu", "POST", TaskPath + "save", second);
    give("zhao.liu", "DELETE", TaskPath + "batchdelete", "DisclosureTaskBatchDelRequest");
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task WHERE dept_id = 'dept-1'"), 0);
}

TEST_F(GoldenRecords, OfAPublishedTaskAreTakenAndAnsweredInTheirShape) {
    give("zhao.liu", "POST", TaskPath + "save", "DisclosureTaskSaveRequest");
    expectKept("DisclosureTaskSaveRequest", task()["result"], {});
    give("li.si", "POST", TaskPath + "confirm_by_receive_user", "DisclosureTaskConfirmByReceiveUserRequest");
    give("zhang.san", "POST", TaskPath + "urge_by_disclosure_user", "DisclosureTaskUrgeRequest");
    give("zhang.san", "POST", TaskPath + "confirm_by_disclosure_user", "DisclosureTaskConfirmByDisclosureUserRequest");
    expectKept("DisclosureTaskConfirmByDisclosureUserRequest", task()["result"], {"taskId"});
    expectKept("DisclosureTaskSaveRequest", task()["result"], {});  // the actual date too, which it names itself

    // What the platform's models are called is not kept here.
    auto shape = shapeOf(golden("DisclosureTaskResponse"));
    for (const char* absent :
         {"disclosureTaskViewportList[].viewportName text", "disclosureTaskViewportList[].viewportFileKey text",
          "disclosureTaskNodeList[].nodeName text", "disclosureTaskNodeList[].uuid text",
          "disclosureTaskNodeList[].thumbnailUuid text"})
        EXPECT_EQ(shape.erase(absent), 1U) << absent;
    EXPECT_EQ(shapeOf(task()["result"]), shape);
    const std::string dept = "?deptId=dept-1";
    const auto page = send("zhao.liu", "GET", TaskPath + "page_disclosure_task_by_deptid_and_catalogid" + dept);
    EXPECT_EQ(shapeOf(page["result"]["result"][0]), shape);
    const auto own = send("li.si", "GET", TaskPath + "page_disclosure_task_4_status_by_currentuser" + dept);
    EXPECT_EQ(shapeOf(own["result"]["result"][0]), shapeOf(golden("DisclosureTask4StatusResponse")));
    for (const auto* paged : {&page, &own})
        EXPECT_EQ((*paged)["result"]["totalCount"].GetInt(), 1);
    const auto conditions = send("li.si", "GET", TaskPath + "query_condition_4_disclosure_task");
    EXPECT_EQ(shapeOf(conditions["result"]), shapeOf(golden("QueryCondition4DisclosureTaskResponse")));
}

TEST_F(GoldenRecords, OfLogAndReminderSettingsAreTakenAndKept) {
    give("zhao.liu", "POST", TaskPath + "save", "DisclosureTaskSaveRequest");
    // The kinds below 100 are the service's own.
    give("zhao.liu", "POST", TaskPath + "save_operation_log", "DisclosureTaskOperationLogSaveRequest",
         {"\"opType\": 3", "\"opType\": 103"});
    const auto log = send("zhao.liu", "GET", TaskPath + "list_operation_log_by_taskid/t-1");
    EXPECT_EQ(shapeOf(log["result"][0]), shapeOf(golden("DisclosureTaskOperationLogResponse")));
    const auto& entries = log["result"].GetArray();
    const auto noted = std::find_if(entries.begin(), entries.end(),
                                    [](const rapidjson::Value& entry) { return entry["opType"].GetInt() == 103; });
    ASSERT_NE(noted, entries.end());
    expectKept("DisclosureTaskOperationLogSaveRequest", *noted, {"opType"});
    const Json other =
        object({{"id", "log-1"}, {"disclosureTaskId", "t-1"}, {"opType", 104}, {"refSourceId", "doc-1"}});
    EXPECT_EQ(service.loggedIn("zhao.liu").post(TaskPath + "save_operation_log", other).code(), 409) << "taken";

    const auto config = [&] { return send("zhao.liu", "GET", TaskPath + "query_push_config?deptId=dept-1"); };
    give("zhao.liu", "POST", TaskPath + "save_push_config", "DisclosureTaskPushConfigSaveRequest");
    EXPECT_EQ(shapeOf(config()["result"]), shapeOf(golden("DisclosureTaskPushConfigSaveRequest")));
    expectKept("DisclosureTaskPushConfigSaveRequest", config()["result"], {});
    const std::string off = object({{"id", "push-1"}, {"isNotifyAdvance", 0}, {"isNotifyOverdue", 1}});
    send("zhao.liu", "POST", TaskPath + "update_push_config", off);
    give("zhao.liu", "POST", TaskPath + "update_push_config", "DisclosureTaskPushConfigUpdateRequest");
    expectKept("DisclosureTaskPushConfigUpdateRequest", config()["result"], {});
}

/// The addresses, too, as the client is held to write them: each is read, though what it asks for may not be there.
TEST_F(GoldenRecords, TheClientsQueriesAreRead) {
    int queries = 0;
    for (const char* file : {"requests/catalog.txt", "requests/task.txt"}) {
        std::istringstream lines(support::readText(file));
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with("GET "))
                continue;
            const std::string target = line.substr(4);
            const Answer answer = service.loggedIn("zhao.liu").get(target);
            // What may be there is found; no id has a slash in it.
            const bool isThere =
                target.find("deptId=dept-1") != std::string::npos || target.ends_with("disclosure_task");
            EXPECT_EQ(answer.code(), isThere ? 200 : 404) << target;
            EXPECT_EQ(answer.status, target.find("%2F") == std::string::npos ? 200 : 404) << target;
            ++queries;
        }
    }
    EXPECT_EQ(queries, 7);
}

}  // namespace
}  // namespace disclosure::testing
