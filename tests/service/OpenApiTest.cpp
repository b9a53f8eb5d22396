#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "service/http/OpenApi.h"
#include "service/http/Route.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

TEST(OpenApiDocument, DescribesExactlyTheRoutes) {
    const OpenApi description;
    std::set<std::string> described;
    for (const auto& path : description.document()["paths"].GetObject()) {
        for (const auto& operation : path.value.GetObject())
            described.insert(std::string(operation.name.GetString()) + " " + path.name.GetString());
    }
    std::set<std::string> served;
    for (const Route& route : routes())
        served.insert(lower(std::string(boost::beast::http::to_string(route.method))) + " " + std::string(route.path));
    EXPECT_EQ(described, served);
}

TEST(OpenApiDocument, IsServedAsItStands) {
    std::ifstream file(SOURCE_ROOT "/docs/openapi.yaml");
    std::stringstream text;
    text << file.rdbuf();
    TestService service;
    EXPECT_EQ(service.client().get("/openapi.yaml").body, text.str());
}

/// Real answers of every operation, good and refused, against the described ones.
TEST(OpenApiDocument, AnswersAreAsDescribed) {
    struct Exchange {
        const char* method;
        std::string target;
        std::string body;
        int status;
        int code;
    };
    const std::string dept = std::string("?deptId=") + FirstDept;
    const std::string elsewhere = std::string("?deptId=") + SecondDept;
    const std::string task = TaskPath;
    const std::string ownBody =
        taskBody("own", "自己的",
                 R"(,"isPublish":1,"disclosureUserName":"demo","disclosureTaskReceiveUserList":)"
                 R"([{"userName":"demo"},{"userName":"sunli"}],"disclosureTaskViewportList":)"
                 R"([{"viewportId":"v"}],"disclosureTaskNodeList":[{"nodeId":"n"}],)"
                 R"("disclosureTaskDocList":[{"name":"d"}])");
    const std::vector<Exchange> exchanges{
        {"GET", "/healthz", "", 200, 200},
        {"GET", "/readyz", "", 200, 200},
        {"POST", "/rs/auth/login", R"({"username":"demo","password":"no"})", 401, 401},
        {"POST", "/rs/auth/login", R"({"username":"demo"})", 400, 400},
        {"POST", "/rs/auth/login", R"({"username":"demo","password":"demo"})", 200, 200},
        {"GET", "/rs/platform/current_user", "", 200, 200},
        {"GET", "/rs/platform/projects", "", 200, 200},
        {"GET", "/rs/platform/rights" + dept, "", 200, 200},
        {"GET", "/rs/platform/rights" + elsewhere, "", 200, 404},
        {"GET", "/rs/platform/departments" + dept, "", 200, 200},
        {"GET", "/rs/platform/departments" + elsewhere, "", 200, 404},
        {"GET", "/rs/platform/departments", "", 400, 400},
        {"GET", "/rs/platform/users" + dept, "", 200, 200},
        {"GET", "/rs/platform/users" + elsewhere, "", 200, 404},
        {"GET", "/rs/platform/messages", "", 200, 200},
        {"GET", "/rs/platform/messages?pageSize=101", "", 400, 400},
        {"GET", "/rs/platform/messages/unread", "", 200, 200},
        {"POST", "/rs/platform/messages/read", R"({"ids":["1"]})", 200, 200},
        {"POST", "/rs/platform/messages/read", "{}", 400, 400},
        {"GET", ListPath + std::string(FirstDept), "", 200, 200},
        {"GET", ListPath + std::string(SecondDept), "", 200, 404},
        {"POST", SavePath, saveBody(FirstDept, "n", "新", Top), 200, 200},
        {"POST", SavePath, saveBody(FirstDept, "", "新", Top), 200, 409},
        {"POST", SavePath, "{}", 400, 400},
        {"POST", UpdatePath, R"({"id":"n","name":"新的"})", 200, 200},
        {"POST", UpdatePath, R"({"id":"n","name":""})", 200, 422},
        {"POST", MovePath, R"({"id":"n","offset":0})", 200, 200},
        {"POST", MovePath, R"({"id":"none","offset":0})", 200, 404},
        {"DELETE", DeletePath, R"({"id":"n","isContainsTask":1})", 200, 200},
        {"DELETE", DeletePath, R"({"id":"n"})", 200, 404},
        {"POST", task + "save", publishedBody("t"), 200, 200},
        {"POST", task + "save", "{}", 400, 400},
        {"POST", task + "save", taskBody("u", ""), 200, 422},
        {"POST", task + "update", R"({"id":"t","disclosureCatalogId":"demo-catalog-17"})", 200, 200},
        {"POST", task + "update", R"({"id":"t","name":"改"})", 200, 409},
        {"GET", task + "page_disclosure_task_by_deptid_and_catalogid" + dept, "", 200, 200},
        {"GET", task + "page_disclosure_task_by_deptid_and_catalogid" + elsewhere, "", 200, 404},
        {"GET", task + "page_disclosure_task_by_deptid_and_catalogid" + dept + "&pageSize=0", "", 400, 400},
        {"GET", task + "page_disclosure_task_4_status_by_currentuser", "", 200, 200},
        {"GET", task + "query_disclosure_task_by_id/t", "", 200, 200},
        {"GET", task + "query_disclosure_task_by_id/none", "", 200, 404},
        {"GET", task + "list_operation_log_by_taskid/t", "", 200, 200},
        {"GET", task + "query_condition_4_disclosure_task", "", 200, 200},
        {"POST", task + "save_operation_log", R"({"disclosureTaskId":"t","opType":100})", 200, 200},
        {"POST", task + "confirm_by_receive_user", R"({"taskId":"t"})", 200, 403},
        {"POST", task + "confirm_by_disclosure_user", R"({"taskId":"t"})", 200, 403},
        {"POST", task + "urge_by_disclosure_user", R"({"taskId":"t"})", 200, 403},
        {"POST", task + "save", ownBody, 200, 200},
        {"POST", task + "confirm_by_receive_user", R"({"taskId":"own"})", 200, 200},
        {"POST", task + "urge_by_disclosure_user", R"({"taskId":"own"})", 200, 200},
        {"POST", task + "confirm_by_disclosure_user", R"({"taskId":"own","attachementList":[{"name":"a"}]})", 200, 422},
        {"POST", task + "confirm_by_disclosure_user", R"({"taskId":"own"})", 200, 200},
        {"GET", task + "query_disclosure_task_by_id/own", "", 200, 200},
        {"GET", task + "query_push_config" + dept, "", 200, 200},
        {"POST", task + "save_push_config", R"({"id":"c","deptId":"demo-dept-1"})", 200, 200},
        {"POST", task + "update_push_config", R"({"id":"c","isNotifyOverdue":1})", 200, 200},
        {"DELETE", task + "batchdelete", R"({"ids":["t"]})", 200, 200},
        {"DELETE", task + "batchdelete", R"({"ids":["t"]})", 200, 404},
        {"POST", "/rs/platform/files" + dept + "&name=a.txt", "text", 200, 200},
        {"POST", "/rs/platform/files" + dept + "&name=a.exe", "text", 200, 422},
        {"POST", "/rs/platform/files" + dept, "text", 400, 400},
        {"GET", "/rs/platform/files/none" + dept, "", 200, 404},
        {"POST", "/rs/platform/files/delete", R"({"deptId":"demo-dept-1","uuid":"none"})", 200, 200},
        {"POST", "/rs/auth/logout", "", 200, 200},
    };
    // The path as the description has it, with the name of its parameter for what stands there.
    const auto pathOf = [](const std::string& method, const std::string& target) {
        std::string path = target.substr(0, target.find('?'));
        for (const Route& route : routes()) {
            if (route.path.back() == '}' && route.matches(path) && to_string(route.method) == method)
                return std::string(route.path);
        }
        return path;
    };
    const OpenApi description;
    TestService service;
    service.database().connect()->addMessage({.rid = 0,
                                              .deptId = FirstDept,
                                              .username = "demo",
                                              .kind = ReminderKind::Overdue,
                                              .text = "消息",
                                              .taskId = "t"});
    Client client = service.loggedIn("demo");
    std::set<std::string> succeeded;
    rapidjson::Document wrong;
    wrong.Parse(R"({"code":200,"success":true,"msg":"","result":7})");
    for (const Exchange& exchange : exchanges) {
        const Answer answer = client.send(exchange.method, exchange.target, exchange.body,
                                          exchange.body == "text" ? OctetStream : "application/json");
        const std::string path = pathOf(exchange.method, exchange.target);
        EXPECT_EQ(answer.status, exchange.status) << path;
        EXPECT_EQ(answer.code(), exchange.code) << path << answer.body;
        const auto schema = description.answerSchema(path, lower(exchange.method), std::to_string(answer.status));
        ASSERT_TRUE(schema) << path << " " << answer.status;
        rapidjson::SchemaValidator validator(*schema);
        EXPECT_TRUE(answer.json().Accept(validator)) << path << " " << answer.body;
        validator.Reset();
        EXPECT_FALSE(wrong.Accept(validator)) << path << ": the schema lets anything pass";
        if (exchange.code == 200)
            succeeded.insert(path);
    }
    for (const Route& route : routes()) {
        const bool isJson = route.path != "/openapi.yaml" && route.work != Work::Download;
        EXPECT_TRUE(!isJson || succeeded.contains(std::string(route.path))) << route.path;
    }
}

}  // namespace
}  // namespace disclosure::testing
