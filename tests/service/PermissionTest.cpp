
#include "tests/service/Described.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

constexpr int NotAsked = 0;  // what there was to do, the one before has done

// What each person is answered, one after the other, about what belongs to the first department: a reader, one who may
// edit, one who may delete too, the discloser of its tasks, a receiver, and a receiver who belongs to another
// department. {task} is published, {plan} is not; {full} is the catalog that they are in, {catalog} is without tasks.
struct Row {
    const char* method;
    const char* path;
    const char* body;
    int reader, edit, all, discloser, receiver, outside;
    bool scoped = true;  // whether another department's is refused as missing
};

const Row Table[] = {
    {"GET", "/rs/platform/current_user", "", 200, 200, 200, 200, 200, 200, false},
    {"GET", "/rs/platform/projects", "", 200, 200, 200, 200, 200, 200, false},
    {"GET", "/rs/platform/rights?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/departments?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/users?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/messages", "", 200, 200, 200, 200, 200, 200, false},
    {"GET", "/rs/platform/messages/unread", "", 200, 200, 200, 200, 200, 200, false},
    {"POST", "/rs/platform/messages/read", R"({"all":true})", 200, 200, 200, 200, 200, 200, false},
    {"GET", "/rs/disclosure/catalog/list_disclosure_catalog_by_deptid?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"POST", "/rs/disclosure/catalog/save", R"({"id":"c","deptId":"{dept}","name":"新","parentId":"{catalog}"})", 403,
     200, 200, 403, 403, 404},
    {"POST", "/rs/disclosure/catalog/update", R"({"id":"{catalog}","name":"改名"})", 403, 200, 200, 403, 403, 404},
    {"POST", "/rs/disclosure/catalog/move", R"({"id":"{catalog}","offset":1})", 403, 200, 200, 403, 403, 404},
    {"DELETE", "/rs/disclosure/catalog/delete", R"({"id":"{catalog}","isContainsTask":1})", 403, 200, NotAsked, 403,
     403, 404},
    {"DELETE", "/rs/disclosure/catalog/delete", R"({"id":"{full}","isContainsTask":1})", 403, 403, 200, 403, 403, 404},
    {"POST", "/rs/platform/files?deptId={dept}&name=a.txt", "text", 403, 200, 200, 403, 403, 404},
    {"GET", "/rs/platform/files/{uuid}?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"POST", "/rs/platform/files/delete", R"({"deptId":"{dept}","uuid":"{uuid}"})", 403, 200, 403, 403, 403, 404},
    {"GET", "/rs/platform/documents?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/documents?deptId={dept}&deleted=1", "", 403, 403, 200, 403, 403, 404},
    {"GET", "/rs/platform/documents/folders?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/documents/updaters?deptId={dept}&folderId={folder}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/documents/tags?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/documents/types", "", 200, 200, 200, 200, 200, 200, false},
    {"GET", "/rs/platform/documents/find?deptId={dept}&ids={doc}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/platform/documents/contents?deptId={dept}&id={doc}", "", 200, 200, 200, 200, 200, 404},
    {"POST", "/rs/platform/documents/folders/save", R"({"id":"new","deptId":"{dept}","name":"新"})", 403, 200, 200, 403,
     403, 404},
    {"POST", "/rs/platform/documents/folders/update", R"({"id":"{folder}","deptId":"{dept}","name":"改"})", 403, 200,
     200, 403, 403, 404},
    {"POST", "/rs/platform/documents/folders/update", R"({"id":"{folder}","deptId":"{dept}","parentId":"parent"})", 403,
     403, 200, 403, 403, 404},
    {"POST", "/rs/platform/documents/folders/delete", R"({"id":"{folder}","deptId":"{dept}"})", 403, 403, 200, 403, 403,
     404},
    {"POST", "/rs/platform/documents/save", R"({"id":"new","deptId":"{dept}","name":"新","uuid":"{uuid}"})", 403, 200,
     200, 403, 403, 404},
    {"POST", "/rs/platform/documents/update", R"({"ids":["{doc}"],"deptId":"{dept}","name":"改"})", 403, 200, 200, 403,
     403, 404},
    {"POST", "/rs/platform/documents/update", R"({"ids":["{doc}"],"deptId":"{dept}","folderId":"{folder}"})", 403, 403,
     200, 403, 403, 404},
    {"POST", "/rs/platform/documents/delete", R"({"ids":["{doc}"],"deptId":"{dept}"})", 403, 403, 200, 403, 403, 404},
    {"POST", "/rs/platform/documents/restore", R"({"ids":["{deleted}"],"deptId":"{dept}"})", 403, 403, 200, 403, 403,
     404},
    {"POST", "/rs/auth/logout", "", 200, 200, 200, 200, 200, 200, false},
    {"GET", "/rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?deptId={dept}", "", 200, 200, 200, 200,
     200, 404},
    {"GET", "/rs/disclosure/task/page_disclosure_task_4_status_by_currentuser?deptId={dept}", "", 200, 200, 200, 200,
     200, 404},
    {"GET", "/rs/disclosure/task/query_disclosure_task_by_id/{task}", "", 200, 200, 200, 200, 200, 200},
    {"GET", "/rs/disclosure/task/query_disclosure_task_by_id/{plan}", "", 200, 200, 200, 200, 200, 404},
    {"GET", "/rs/disclosure/task/list_operation_log_by_taskid/{task}", "", 200, 200, 200, 200, 200, 200},
    {"GET", "/rs/disclosure/task/query_condition_4_disclosure_task", "", 200, 200, 200, 200, 200, 200, false},
    {"GET", "/rs/disclosure/task/query_push_config?deptId={dept}", "", 200, 200, 200, 200, 200, 404},
    {"POST", "/rs/disclosure/task/save",
     R"({"id":"new","deptId":"{dept}","disclosureCatalogId":"{catalog}","name":"新"})", 403, 200, 200, 403, 403, 404},
    {"POST", "/rs/disclosure/task/update", R"({"id":"{plan}","name":"改"})", 403, 200, 200, 403, 403, 404},
    {"POST", "/rs/disclosure/task/update", R"({"id":"{task}","disclosureCatalogId":"{catalog}"})", 403, 403, 200, 403,
     403, 403},
    {"DELETE", "/rs/disclosure/task/batchdelete", R"({"ids":["{task}"]})", 403, 403, 200, 403, 403, 403},
    {"POST", "/rs/disclosure/task/save_operation_log", R"({"id":"l","disclosureTaskId":"{task}","opType":100})", 200,
     409, 409, 409, 409, 409},
    {"POST", "/rs/disclosure/task/confirm_by_receive_user", R"({"taskId":"{task}"})", 403, 403, 403, 403, 200, 200},
    {"POST", "/rs/disclosure/task/confirm_by_disclosure_user", R"({"taskId":"{task}"})", 403, 403, 403, 200, 403, 403},
    {"POST", "/rs/disclosure/task/urge_by_disclosure_user", R"({"taskId":"{task}"})", 403, 403, 403, 200, 403, 403},
    {"POST", "/rs/disclosure/task/save_push_config", R"({"id":"new","deptId":"{dept}"})", 403, 200, 200, 403, 403, 404},
    {"POST", "/rs/disclosure/task/update_push_config", R"({"id":"{config}","daysNotifyAdvance":7})", 403, 200, 200, 403,
     403, 404},
};

using Names = std::map<std::string, std::string>;

std::string filled(std::string text, const Names& names) {
    for (const auto& [key, value] : names) {
        for (auto at = text.find(key); at != std::string::npos; at = text.find(key))
            text.replace(at, key.size(), value);
    }
    return text;
}

class Permissions : public ::testing::TestWithParam<Row> {
protected:
    Permissions() {
        Client demo = service.loggedIn("demo");
        Client second = service.loggedIn("second");
        second.post(SavePath, saveBody(SecondDept, "top-2", "全部", ""));
        for (const char* id : {"catalog-2", "full-2"})
            second.post(SavePath, saveBody(SecondDept, id, id, "top-2"));
        const std::string people = R"(,"disclosureUserName":"chenwei","disclosureTaskReceiveUserList":[{"userName":)"
                                   R"("liuyang"},{"userName":"zhoujie"}])";
        demo.post(TaskPath + "save", taskBody("task", "任务", R"(,"isPublish":1)" + people));
        demo.post(TaskPath + "save", taskBody("plan", "计划", people));
        for (const char* id : {"task-2", "plan-2"})
            service.addTask(SecondDept, "full-2", id);
        if (!std::string_view(GetParam().path).ends_with("save_push_config"))
            demo.post(TaskPath + "save_push_config", R"({"id":"config","deptId":"demo-dept-1"})");
        second.post(TaskPath + "save_push_config", R"({"id":"config-2","deptId":"demo-dept-2"})");
        // The content looks like a success, as the other answers do.
        const auto upload = [](auto&& client, const char* deptId) -> std::string {
            return client.upload(deptId, "a.txt", R"({"code":200})").json()["result"]["uuid"].GetString();
        };
        own["{uuid}"] = upload(service.loggedIn("editor"), FirstDept);
        foreign["{uuid}"] = upload(service.loggedIn("second"), SecondDept);
        const auto file = [&](Client& client, const char* deptId, const Names& names) {
            const auto post = [&](const char* operation, const Members& members) {
                EXPECT_EQ(client.post(DocumentsPath + operation, object({{"deptId", deptId}}, members)).code(), 200);
            };
            post("folders/save", {{"id", "parent"}, {"name", "上级"}});
            post("folders/save", {{"id", names.at("{folder}")}, {"name", "图纸"}});
            for (const char* key : {"{doc}", "{deleted}"})
                post("save", {{"id", names.at(key)}, {"name", "图"}, {"uuid", upload(client, deptId)}});
            post("delete", {{"ids", list({names.at("{deleted}")})}});
        };
        file(demo, FirstDept, own);
        file(second, SecondDept, foreign);
    }
    Answer ask(const std::string& person, const Names& names) {
        const Row& row = GetParam();
        Client client = person.empty() ? service.client() : service.loggedIn(person);
        const Answer answer = client.send(row.method, filled(row.path, names), filled(row.body, names),
                                          *row.body == '{' ? "application/json" : OctetStream);
        const bool isFile = row.path == std::string_view("/rs/platform/files/{uuid}?deptId={dept}");
        if (!person.empty() && !(isFile && answer.code() == 200))
            expectDescribed(row.method, filled(row.path, names), answer);
        return answer;
    }
    /// Differs after every change.
    std::string state() {
        return service.loggedIn("demo").get(std::string(ListPath) + FirstDept).body +
               service.loggedIn("second").get(std::string(ListPath) + SecondDept).body +
               std::to_string(service.number(
                   "SELECT (SELECT COUNT(*) FROM task) + 100 * (SELECT COUNT(*) FROM task_log) + 10000 * (SELECT "
                   "COUNT(*) + SUM(days_advance) FROM push_config) + 1000000 * (SELECT SUM(updated_at % 1000) FROM "
                   "task) + 1000000000 * (SELECT COUNT(*) FROM stored_file)")) +
               std::to_string(service.number(
                   "SELECT (SELECT COUNT(*) + 10 * SUM(LENGTH(name)) + 1000 * SUM(depth) FROM doc_folder) + 10000 * "
                   "(SELECT COUNT(*) + 10 * SUM(LENGTH(folder_id)) + 1000 * SUM(deleted) FROM document) + 1000000000 "
                   "* (SELECT SUM(name = '改.txt') + SUM(name = '改') FROM (SELECT name FROM document UNION ALL SELECT "
                   "name FROM doc_folder))"));
    }

    TestService service;
    Names own{
        {"{dept}", FirstDept},   {"{catalog}", "demo-catalog-17"}, {"{full}", "demo-catalog-2"}, {"{task}", "task"},
        {"{plan}", "plan"},      {"{config}", "config"},           {"{folder}", "folder"},       {"{doc}", "doc"},
        {"{deleted}", "deleted"}};
    Names foreign{{"{dept}", SecondDept},   {"{catalog}", "catalog-2"}, {"{full}", "full-2"},
                  {"{task}", "task-2"},     {"{plan}", "plan-2"},       {"{config}", "config-2"},
                  {"{folder}", "folder-2"}, {"{doc}", "doc-2"},         {"{deleted}", "deleted-2"}};
};

TEST_P(Permissions, EveryCell) {
    const Row& row = GetParam();
    const std::pair<const char*, int> people[] = {{"reader", row.reader},    {"editor", row.edit},
                                                  {"demo", row.all},         {"chenwei", row.discloser},
                                                  {"liuyang", row.receiver}, {"zhoujie", row.outside}};
    const auto refused = [](int code) { return code == 403 || code == 404; };
    Names missing = own;
    for (auto& [key, value] : missing)
        value = "none";
    const std::string before = state();
    for (const Names* names : {&own, &foreign, &missing})
        EXPECT_EQ(ask("", *names).status, 302);
    for (const char* person : {"reader", "editor", "demo", "chenwei", "liuyang"}) {
        const Answer other = ask(person, foreign);
        EXPECT_EQ(other.code(), row.scoped ? 404 : 200) << person;
        if (row.scoped) {
            EXPECT_EQ(other.body, ask(person, missing).body)
                << person << ": what is not theirs must look as if it did not exist";
        }
    }
    EXPECT_EQ(ask("second", own).code(), row.scoped ? 404 : 200);
    for (const auto& [person, code] : people) {
        if (refused(code)) {
            EXPECT_EQ(ask(person, own).code(), code) << person;
        }
    }
    EXPECT_EQ(state(), before) << "a refusal changes nothing";
    for (const auto& [person, code] : people) {
        if (code != NotAsked && !refused(code)) {
            EXPECT_EQ(ask(person, own).code(), code) << person;
        }
    }
    EXPECT_EQ(state() != before, row.scoped && std::string(row.method) != "GET");
    if (*row.body == '{') {
        const Answer malformed = service.loggedIn("demo").send(row.method, row.path, "[]");
        EXPECT_EQ(malformed.status, 400);
        expectDescribed(row.method, row.path, malformed);
    }
}

INSTANTIATE_TEST_SUITE_P(Routes, Permissions, ::testing::ValuesIn(Table));

TEST(Routes, AreAllDescribedAndTheGuardedOnesInTheTable) {
    const OpenApi description;
    std::set<std::string> described;
    for (const auto& path : description.document()["paths"].GetObject()) {
        for (const auto& operation : path.value.GetObject())
            described.insert(std::string(operation.name.GetString()) + " " + path.name.GetString());
    }
    std::set<std::string> served;
    for (const Route& route : routes()) {
        served.insert(lower(std::string(to_string(route.method))) + " " + std::string(route.path));
        const auto covers = [&](const Row& row) {
            const std::string path(row.path);
            return to_string(route.method) == row.method && path.substr(0, std::min(path.find('?'), path.find("/{"))) ==
                                                                route.path.substr(0, route.path.find("/{"));
        };
        EXPECT_TRUE(route.scope == Scope::Public || std::any_of(std::begin(Table), std::end(Table), covers))
            << route.path;
    }
    EXPECT_EQ(described, served);
}

TEST(Routes, OfStrangersAnswerAsDescribed) {
    TestService service;
    Client client = service.client();
    std::stringstream text;
    text << std::ifstream(SOURCE_ROOT "/docs/openapi.yaml").rdbuf();
    EXPECT_EQ(client.get("/openapi.yaml").body, text.str());
    for (const char* path : {"/healthz", "/readyz"})
        expectDescribed("GET", path, client.get(path));
    const std::string path = "/rs/auth/login";
    for (const auto& [password, status] : {std::pair("no", 401), {"", 400}, {"demo", 200}}) {
        const Members name{{"username", "demo"}};
        const Answer answer = client.post(path, *password ? object(name, {{"password", password}}) : object(name));
        EXPECT_EQ(answer.status, status);
        expectDescribed("POST", path, answer);
    }
}

TEST(PermissionsAbove, MembersOfTheOrganisationReachWhatIsBelow) {
    TestService service;
    const auto store = service.database().connect();
    store->putMember("demo-org", "sunli");
    store->putRights("demo-org", "sunli", {Right::EditCatalogs});
    Client client = service.loggedIn("sunli");
    EXPECT_EQ(client.post(SavePath, saveBody(SecondDept, "", "全部", "")).code(), 200);
    EXPECT_EQ(client.get("/rs/platform/projects").json()["result"].Size(), 3U);
    EXPECT_EQ(client.get("/rs/platform/departments?deptId=demo-org").json()["result"].Size(), 4U);
    EXPECT_EQ(client.get("/rs/platform/users?deptId=demo-org").json()["result"].Size(), 8U) << "each person once";
    EXPECT_EQ(service.loggedIn("demo").get("/rs/platform/departments?deptId=demo-org").code(), 404);
}

TEST(PermissionsInTwo, ToDeleteTasksOfBothTheRightIsNeededInBoth) {
    TestService service;
    const auto store = service.database().connect();
    store->putMember(SecondDept, "demo");
    Client client = service.loggedIn("demo");
    client.post(SavePath, saveBody(FirstDept, "own", "自", Top));
    service.loggedIn("second").post(SavePath, saveBody(SecondDept, "theirs", "全部", ""));
    for (const char* id : {"a", "c"})
        service.addTask(FirstDept, "own", id);
    service.addTask(SecondDept, "theirs", "b");
    const auto remove = [&](const Json& ids) {
        return client.del(TaskPath + "batchdelete", object({{"ids", ids}})).code();
    };
    // Whichever is looked at first.
    EXPECT_EQ(remove(list({"a", "b"})), 403);
    EXPECT_EQ(remove(list({"b", "c"})), 403);
    EXPECT_EQ(service.number("SELECT COUNT(*) FROM task WHERE task_id IN ('a', 'b', 'c')"), 3);
    store->putRights(SecondDept, "demo", {Right::DeleteTasks});
    EXPECT_EQ(remove(list({"a", "b", "c"})), 200);
    EXPECT_EQ(service.number("SELECT COUNT(DISTINCT dept_id) FROM task_log WHERE kind = 5"), 2);
}

}  // namespace
}  // namespace disclosure::testing
