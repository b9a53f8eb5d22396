#include <cpprest/http_client.h>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <sstream>
#include <sys/socket.h>
#include <thread>
#include <type_traits>
#include <utility>

#include <QTcpServer>
#include <QTcpSocket>

#include "client/api/ApiException.h"
#include "client/api/DisclosureCatalogControllerApi.h"
#include "client/api/DisclosureTaskControllerApi.h"
#include "tests/support/Golden.h"
#include "tests/support/RawHttpServer.h"

namespace {

using namespace io::swagger::client::api;
using namespace io::swagger::client::model;
using support::RawHttpServer;
using support::readText;

/// Offers the shared routine for operations that the service does not have.
class AnyApi : public ControllerApi {
public:
    using ControllerApi::call;
    using ControllerApi::ControllerApi;
};

class ControllerApiTest : public testing::Test {
protected:
    ControllerApiTest() { configuration->setBaseUrl("http://" + server.address() + "/rs"); }

    /// What a listing says to `answer`: "code: message" of an `ApiException`, "other" for another failure, "" for none.
    std::string failure(const RawHttpServer::Answer& answer) {
        server.reset();
        server.then(answer);
        return outcome([&] { catalogs.listDisclosureCatalogByDeptId("d").get(); });
    }

    template <class Call>
    std::string outcome(Call call) {
        try {
            call();
        } catch (const ApiException& error) {
            content = error.getContent();
            return std::to_string(error.error_code().value()) + ": " + error.what();
        } catch (const std::exception&) {
            return "other";
        }
        return "";
    }

    RawHttpServer server;
    std::shared_ptr<ApiConfiguration> configuration = std::make_shared<ApiConfiguration>();
    std::shared_ptr<ApiClient> client = std::make_shared<ApiClient>(configuration);
    DisclosureCatalogControllerApi catalogs{client};
    DisclosureTaskControllerApi tasks{client};
    AnyApi any{client};
    std::shared_ptr<std::istream> content;
};

/// Every operation of the service, those with a body both with the record of the hand-written file and without any.
class OperationsTest : public ControllerApiTest {
protected:
    struct Operation {
        std::function<void()> call;
        std::function<void()> callWithoutBody;
        std::string missing;
    };

    /// The body is called after its record, except where `parameter` is given.
    template <class Api, class Record, class Answer>
    Operation withBody(const Api& api,
                       pplx::task<std::shared_ptr<Answer>> (Api::*operation)(const std::shared_ptr<Record>&) const,
                       const std::string& record, const std::string& parameter = {}) {
        const auto send = [&api, operation, record] {
            auto json = web::json::value::parse(readText("golden/" + record + ".json"));
            const auto body = std::make_shared<Record>();
            body->fromJson(json);
            (api.*operation)(body).get();
        };
        return {send, [&api, operation] { (api.*operation)(nullptr); },
                "400: Missing required parameter '" + (parameter.empty() ? "d" + record.substr(1) : parameter) +
                    "' when calling Disclosure" + (std::is_same_v<Api, Tasks> ? "Task" : "Catalog") +
                    "ControllerApi->"};
    }

    static Operation plain(std::function<void()> call) { return {std::move(call), {}, {}}; }

    using Catalogs = DisclosureCatalogControllerApi;
    using Tasks = DisclosureTaskControllerApi;
    const std::map<std::string, Operation> operations{
        {"deleteDisclosureCatalog",
         withBody(catalogs, &Catalogs::deleteDisclosureCatalog, "DisclosureCatalogDelRequest")},
        {"listDisclosureCatalogByDeptId", plain([this] { catalogs.listDisclosureCatalogByDeptId("部 1").get(); })},
        {"moveDisclosureCatalog", withBody(catalogs, &Catalogs::moveDisclosureCatalog, "DisclosureCatalogMoveRequest")},
        {"saveDisclosureCatalog", withBody(catalogs, &Catalogs::saveDisclosureCatalog, "DisclosureCatalogSaveRequest")},
        {"updateDisclosureCatalog",
         withBody(catalogs, &Catalogs::updateDisclosureCatalog, "DisclosureCatalogUpdateRequest")},
        {"confirmByDisclousreUser",
         withBody(tasks, &Tasks::confirmByDisclousreUser, "DisclosureTaskConfirmByDisclosureUserRequest")},
        {"confirmByReceiveUser",
         withBody(tasks, &Tasks::confirmByReceiveUser, "DisclosureTaskConfirmByReceiveUserRequest")},
        {"deleteDisclosureTask", withBody(tasks, &Tasks::deleteDisclosureTask, "DisclosureTaskBatchDelRequest")},
        {"getDisclosureTaskById", plain([this] { tasks.getDisclosureTaskById("42").get(); })},
        {"listOperationLogByTaskId", plain([this] { tasks.listOperationLogByTaskId("a /{id}?二").get(); })},
        {"pageDisclosureTask4StatusByCurrentUser", plain([this] {
             tasks.pageDisclosureTask4StatusByCurrentUser("dept-1", "底板", 2, "", -1, 1702569599999, 1, 30).get();
         })},
        {"pageDisclosureTaskByDeptIdAndCatalogId", plain([this] {
             tasks
                 .pageDisclosureTaskByDeptIdAndCatalogId("dept-1", "c-1", 0, "a&b", 1, -1, 1702569599999, 3, 30,
                                                         "updateAt", "DESC")
                 .get();
         })},
        {"queryCondition4DisclosureTask", plain([this] { tasks.queryCondition4DisclosureTask().get(); })},
        {"queryPushConfig", plain([this] { tasks.queryPushConfig("").get(); })},
        {"saveDisclosureTask",
         withBody(tasks, &Tasks::saveDisclosureTask, "DisclosureTaskSaveRequest", "disclosureCatalogSaveRequest")},
        {"saveOperationLog", withBody(tasks, &Tasks::saveOperationLog, "DisclosureTaskOperationLogSaveRequest")},
        {"savePushConfig", withBody(tasks, &Tasks::savePushConfig, "DisclosureTaskPushConfigSaveRequest",
                                    "disclosureTaskPushConfigRequest")},
        {"updateDisclosureTask", withBody(tasks, &Tasks::updateDisclosureTask, "DisclosureTaskUpdateRequest")},
        {"updatePushConfig", withBody(tasks, &Tasks::updatePushConfig, "DisclosureTaskPushConfigUpdateRequest")},
        {"urgeByDisclousreUser", withBody(tasks, &Tasks::urgeByDisclousreUser, "DisclosureTaskUrgeRequest")},
    };
};

/// tests/data/requests: a block an operation, each of its name, its request and where its body is written.
TEST_F(OperationsTest, EachSendsItsRequest) {
    server.then(RawHttpServer::json(R"({"code":200})"));
    std::istringstream blocks(readText("requests/catalog.txt") + "\n" + readText("requests/task.txt"));
    std::size_t count = 0;
    for (std::string name; std::getline(blocks, name); ++count) {
        SCOPED_TRACE(name);
        std::string expected;
        std::string body;
        for (std::string line; std::getline(blocks, line) && !line.empty();)
            (line.rfind("golden/", 0) == 0 ? body : expected) += line + (line.rfind("golden/", 0) == 0 ? "" : "\n");
        ASSERT_NO_THROW(operations.at(name).call());
        const auto request = server.requests().back();
        std::string sent = request.method + " " + request.target + "\n";
        for (const char* header : {"Accept", "Content-Type"})
            if (!request.header(header).empty())
                sent += std::string(header) + ": " + request.header(header) + "\n";
        EXPECT_EQ(sent, expected);
        EXPECT_EQ(support::pretty(request.body) + "\n", body.empty() ? "\n" : readText(body));
    }
    EXPECT_EQ(count, operations.size());
}

TEST_F(OperationsTest, FailuresNameTheOperation) {
    for (const auto& [name, operation] : operations) {
        server.reset();
        server.then(RawHttpServer::json("{}", "404 没有"))
            .then(RawHttpServer::text("200 OK", "Content-Type: a/b\r\n", ""));
        EXPECT_EQ(outcome(operation.call), "404: error calling " + name + ": 没有");
        EXPECT_EQ(outcome(operation.call), "500: error calling " + name + ": unexpected response type: a/b");
        if (operation.callWithoutBody) {
            EXPECT_EQ(outcome(operation.callWithoutBody), operation.missing + name);
        }
        EXPECT_EQ(server.requests().size(), 2u);
    }
}

TEST_F(ControllerApiTest, TypesOfContentDecideTheBodyAndTheAnswer) {
    Operation operation{"AnyApi", "touch", "POST", "/x/{id}/{id}/{other}"};
    const auto record = std::make_shared<ResultState>();
    record->setResultState(true);
    const auto touch = [&] {
        return outcome([&] {
            any.call<ResultState>(
                   operation,
                   Arguments().path("id", std::string("a/{other} 二")).path("other", 42).body("record", record))
                .get();
        });
    };
    operation.produces = {"text/plain"};
    EXPECT_EQ(touch(), "400: AnyApi->touch does not produce any supported media type");
    operation.produces = {"text/plain", "application/json"};
    operation.consumes = {};
    EXPECT_EQ(touch(), "415: AnyApi->touch does not consume any supported media type");

    server.then(RawHttpServer::json("{}"));
    operation.consumes = {"text/plain", "multipart/form-data"};
    EXPECT_EQ(touch(), "");
    const auto request = server.requests().back();
    EXPECT_EQ(request.target, "/rs/x/a%2F%7Bother%7D%20%E4%BA%8C/a%2F%7Bother%7D%20%E4%BA%8C/42");
    EXPECT_EQ(request.header("Content-Type").rfind("multipart/form-data; boundary=", 0), 0u);
    EXPECT_NE(request.body.find("name=\"record.resultState\"\r\n\r\ntrue"), std::string::npos) << request.body;

    operation.produces = {"multipart/form-data"};
    EXPECT_EQ(touch(), "500: error calling touch: unexpected response type: application/json");
    server.reset();
    server.then(RawHttpServer::text("200 OK", "Content-Type: multipart/form-data; boundary=b\r\n", "--b--"));
    EXPECT_EQ(touch(), "500: error calling touch: unsupported response type");
    EXPECT_EQ(server.requests().back().header("Accept"), "multipart/form-data");
}

TEST_F(ControllerApiTest, StatusAndTypeOfTheAnswerAreChecked) {
    const std::string error = "error calling listDisclosureCatalogByDeptId: ";
    EXPECT_EQ(failure(RawHttpServer::json("gone", "404 没有")), "404: " + error + "没有");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*content), {}), "gone");
    EXPECT_EQ(failure(RawHttpServer::text("500 Oh no", "Content-Type: text/html\r\n", "<p>")),
              "500: " + error + "Oh no");
    EXPECT_EQ(failure({"HTTP/1.1 503 Busy\r\nContent-Length: 100\r\n\r\nhalf"}), "503: " + error + "Busy");

    for (const char* location : {"", "Location: /login\r\n"}) {
        server.reset();
        server.then(RawHttpServer::text("302 Found", location, "<html>")).then(RawHttpServer::json(R"({"code":200})"));
        EXPECT_EQ(outcome([&] { catalogs.listDisclosureCatalogByDeptId("d").get(); }), "302: 302 error");
        EXPECT_EQ(content, nullptr);
        EXPECT_EQ(server.requests().size(), 1u) << "it was followed";
    }
    EXPECT_EQ(failure(RawHttpServer::text("200 OK", "Content-Type: text/html;charset=GBK\r\n", "<html>")),
              "302: http://" + server.address() + "/rs/disclosure/catalog/list_disclosure_catalog_by_deptid");
    EXPECT_EQ(failure(RawHttpServer::text("200 OK", "Content-Type: text/plain\r\n", "{}")),
              "500: " + error + "unexpected response type: text/plain");
    EXPECT_EQ(failure(RawHttpServer::text("200 OK", {}, R"({"code":200})")), "");
    server.reset();
    server.then(RawHttpServer::text("200 OK", "Content-Type: application/json;charset=UTF-8\r\n",
                                    R"({"code":200,"result":[{"name":"目录"}]})"));
    EXPECT_EQ(catalogs.listDisclosureCatalogByDeptId("").get()->getResult().at(0)->getName(), "目录");
    EXPECT_EQ(failure(RawHttpServer::text("200 OK", "Content-Type: application/json; charset=gbk\r\n", "{}")), "");
}

TEST_F(ControllerApiTest, BrokenAnswersFailTheTask) {
    for (const char* body : {"", "{", "{\"code\":200}x", "<html>", "{\"code\":\"200\"}", "\xff\xfe"})
        EXPECT_EQ(failure(RawHttpServer::json(body)), "other") << body;
    EXPECT_EQ(failure(RawHttpServer::json(std::string(100'000, '['))), "other");
    EXPECT_EQ(failure({"HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 100\r\n\r\n{\"code\""}),
              "other");
    EXPECT_EQ(failure({"not HTTP at all\r\n\r\n"}), "other");
    EXPECT_EQ(failure({"\r\n"}), "other");

    EXPECT_EQ(
        failure(RawHttpServer::text(
            "200 OK", "Content-Type: application/json\r\nX: " + std::string(200'000, 'x') + "\r\n", R"({"code":200})")),
        "");
    auto late = RawHttpServer::json(R"({"code":200})");
    late.delay = std::chrono::milliseconds(300);
    EXPECT_EQ(failure(late), "");

    configuration->setBaseUrl("http://127.0.0.1:1/rs");
    EXPECT_EQ(failure(RawHttpServer::json("{}")), "other");
    configuration->setBaseUrl("http:///rs");
    EXPECT_EQ(failure(RawHttpServer::json("{}")), "other");
}

/// What connecting and silence may take.
class LimitsTest : public ControllerApiTest {
protected:
    static constexpr std::chrono::seconds kNever{60};

    /// The system's word for what a listing came to.
    std::string listing() {
        try {
            catalogs.listDisclosureCatalogByDeptId("d").get();
        } catch (const web::http::http_exception& error) {
            return error.error_code() == std::errc::timed_out ? "late" : "broken";
        }
        return "";
    }
};

TEST_F(LimitsTest, OnlyWhoIsSilentIsLate) {
    configuration->setLimits(std::chrono::milliseconds(500), kNever);
    auto slow = RawHttpServer::json(R"({"code":200})");
    slow.delay = std::chrono::milliseconds(900);
    server.then(slow);
    EXPECT_EQ(listing(), "") << "it was connected in time";
    configuration->setLimits(kNever, std::chrono::milliseconds(500));
    EXPECT_NE(listing(), "");

    // A peer whose line of those who wait is full: the system does not answer the next one.
    QTcpServer deaf;
    deaf.setMaxPendingConnections(1);
    ASSERT_TRUE(deaf.listen(QHostAddress::LocalHost));
    ::listen(static_cast<int>(deaf.socketDescriptor()), 0);
    QTcpSocket waiting[3];
    for (QTcpSocket& socket : waiting) {
        socket.connectToHost(QHostAddress::LocalHost, deaf.serverPort());
        socket.waitForConnected(100);
    }
    configuration->setBaseUrl("http://127.0.0.1:" + std::to_string(deaf.serverPort()) + "/rs");
    configuration->setLimits(std::chrono::milliseconds(300), kNever);
    EXPECT_EQ(listing(), "late");
}

TEST_F(LimitsTest, ASlowAnswerThatMovesIsWaitedForAndACallCanBeGivenUp) {
    QTcpServer trickle;
    ASSERT_TRUE(trickle.listen(QHostAddress::LocalHostIPv6)) << "the address goes in brackets";
    const std::string authority = "[::1]:" + std::to_string(trickle.serverPort());
    configuration->setBaseUrl("http://" + authority + "/rs/");
    configuration->setLimits(kNever, std::chrono::seconds(1));
    auto call = catalogs.listDisclosureCatalogByDeptId("d");
    ASSERT_TRUE(trickle.waitForNewConnection(10000));
    QTcpSocket& socket = *trickle.nextPendingConnection();
    ASSERT_TRUE(socket.waitForReadyRead(10000));
    const QByteArray asked = socket.readAll();
    EXPECT_TRUE(asked.startsWith("GET /rs/disclosure/")) << asked.constData();
    EXPECT_TRUE(asked.contains("Host:" + QByteArray::fromStdString(authority))) << asked.constData();
    const QByteArray body = R"({"code":200})" + QByteArray(30000, ' ');
    socket.write("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " +
                 QByteArray::number(body.size()) + "\r\n\r\n");
    for (int at = 0; at < body.size(); at += 5000) {  // twice the limit in all
        socket.write(body.mid(at, 5000));
        socket.waitForBytesWritten(1000);
        std::this_thread::sleep_for(std::chrono::milliseconds(350));
    }
    EXPECT_EQ(outcome([&] { EXPECT_EQ(call.get()->getCode(), 200); }), "");

    auto next = catalogs.listDisclosureCatalogByDeptId("d");
    catalogs.cancelCalls();
    EXPECT_NE(outcome([&] { next.get(); }), "");
}

}  // namespace
