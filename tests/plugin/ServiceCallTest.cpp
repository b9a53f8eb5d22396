#include <functional>
#include <set>

#include "plugin/service/CDisclosureTaskFollowUp.h"
#include "plugin/service/ServiceCall.h"
#include "sdk/baseui/ProgressDialog.h"
#include "sdk/packages/IKpxClientConfigMgr.h"
#include "sdk/packages/disclosure/LastFailure.h"
#include "tests/plugin/ManagerTest.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using namespace testing;
using namespace support;

/// What every operation that calls the service has in common.
class ServiceCallTest : public support::ManagerTest {
protected:
    struct Operation {
        const char* name;
        std::function<bool()> call;
        std::set<std::string> accepts;  // of `kResults`; all where nobody looks at the result
    };
    inline static const std::set<std::string> kResults{"null", "true", "5", R"("")", "[]", "{}"};

    const std::vector<Operation> operations{
        {"SaveCatalog",
         [this] {
             return manager.SaveCatalog({L"i", L"主体", L"p", 7, 8});
         },
         kResults},
        {"ListCatalogs", [this] { return manager.ListCatalogs(catalogs, L"d"); }, {"null", "[]"}},
        {"DeleteCatalog", [this] { return manager.DeleteCatalog(L"i"); }, kResults},
        {"MoveCatalog", [this] { return manager.MoveCatalog(L"i", 1); }, kResults},
        {"UpdateCatalog", [this] { return manager.UpdateCatalog({}); }, kResults},
        {"SaveTask", [this] { return manager.SaveTask(task); }, kResults},
        {"MoveTaskToCatalog", [this] { return manager.MoveTaskToCatalog(L"t", L"c"); }, kResults},
        {"BatchDeleteTasks", [this] { return manager.BatchDeleteTasks({L"t"}); }, kResults},
        {"PageTasks", [this] { return manager.PageTasks({}, tasks, total); }, {"{}"}},
        {"QueryTaskById", [this] { return manager.QueryTaskById(L"t", read); }, {"{}"}},
        {"QueryPushConfig", [this] { return manager.QueryPushConfig(L"d", config); }, {"null", "{}"}},
        {"SavePushConfig", [this] { return manager.SavePushConfig({}); }, kResults},
        {"UpdatePushConfig", [this] { return manager.UpdatePushConfig({}); }, kResults},
        {"ConfirmByReceiver", [this] { return followUp.ConfirmByReceiver(L"t"); }, kResults},
        {"ConfirmByDiscloser", [this] { return followUp.ConfirmByDiscloser(L"t", L"", {}); }, kResults},
        {"UrgeReceivers", [this] { return followUp.UrgeReceivers(L"t"); }, kResults},
        {"ListOperationLog", [this] { return followUp.ListOperationLog(L"t", entries); }, {"null", "[]"}},
        {"PageOwnTasks", [this] { return followUp.PageOwnTasks({}, own, total); }, {"{}"}},
        {"QueryConditions", [this] { return followUp.QueryConditions(conditions, conditions); }, {"{}"}},
    };
    ServiceCallTest() { task.id = L"t"; }
    bool list() { return manager.ListCatalogs(catalogs, L"d"); }

    CDisclosureTaskFollowUp followUp;
    std::vector<CatalogRecord> catalogs;
    std::vector<TaskRecord> tasks;
    std::vector<OperationLogRecord> entries;
    std::vector<OwnTaskRecord> own;
    std::vector<TaskCondition> conditions;
    TaskRecord task;
    TaskRecord read;
    PushConfig config;
    int32_t total = 7;
};

TEST_F(ServiceCallTest, TheCodeIsJudgedBeforeTheResult) {
    for (const auto& operation : operations)
        for (const std::string& result : kResults) {
            SCOPED_TRACE(operation.name + (" " + result));
            host.rest.reported.clear();
            answer(answerOf(result));
            const bool accepts = operation.accepts.count(result) > 0;
            EXPECT_EQ(operation.call(), accepts);
            EXPECT_EQ(LastFailure(), accepts ? L"" : L"无法识别服务的应答");
            EXPECT_THAT(host.rest.reported, IsEmpty());

            answer(RawHttpServer::json(R"({"code":409,"success":false,"msg":"名称已存在","result":)" + result + "}"));
            server.then(RawHttpServer::json(R"({"success":true,"result":)" + result + "}"));
            EXPECT_FALSE(operation.call() || operation.call());
            EXPECT_THAT(host.rest.reported, ElementsAre(Pair(409, L"名称已存在"), Pair(0, L"true")));
        }
    EXPECT_THAT(host.rest.renewed, IsEmpty());
    EXPECT_TRUE(catalogs.empty() && tasks.empty() && entries.empty() && own.empty() && conditions.empty());
}

TEST_F(ServiceCallTest, AnExpiredSessionIsRenewedAndTheCallRepeatedUntilTheHostSaysNo) {
    for (const auto& operation : operations) {
        SCOPED_TRACE(operation.name);
        answer(kExpired);
        server.then(RawHttpServer::text("200 OK", "Content-Type: text/html\r\n", "<html>"))
            .then(answerOf(*operation.accepts.rbegin()));
        host.rest.renewed.clear();
        host.rest.renewals = {true, true};
        EXPECT_TRUE(operation.call());
        const auto requests = server.requests();
        ASSERT_EQ(requests.size(), 3U);
        const std::string path = requests[0].target.substr(0, requests[0].target.find('?'));
        for (const auto& request : requests)
            EXPECT_EQ(request.method + request.target + request.body,
                      requests[0].method + requests[0].target + requests[0].body);
        EXPECT_THAT(host.rest.renewed,
                    ElementsAre(Pair(L"BuilderCommonBusinessdata", L"302 error"),
                                Pair(L"BuilderCommonBusinessdata", FromService("http://" + server.address() + path))));
        answer(kExpired);
        host.rest.renewed.clear();
        host.rest.renewals = {true, false};
        EXPECT_FALSE(operation.call());
        EXPECT_EQ(server.requests().size(), 2U);
        EXPECT_EQ(LastFailure(), L"登录已失效");
    }
    EXPECT_THAT(host.rest.reported, IsEmpty());
}

TEST_F(ServiceCallTest, ARepeatUsesTheNewSessionAndTheDepartmentFoundBefore) {
    struct Renewing : support::FakeRestServMgr {
        bool RenewSession(const std::wstring&, const std::wstring&) override {
            host->web.sessionId = "fresh";
            host->project.deptId = L"another";
            return true;
        }
        support::FakeHost* host = nullptr;
    } renewing;
    renewing.host = &host;
    host.managers[BASECORE::NAMES::kRestService] = &renewing;
    server.then(kExpired).then(answerOf("[]"));
    EXPECT_TRUE(manager.ListCatalogs(catalogs, L""));
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[1].target, requests[0].target);
    EXPECT_EQ(requests[1].header("Cookie"), "JSESSIONID=fresh");
}

TEST_F(ServiceCallTest, AFailureIsSilentKeepsItsReasonAndIsNotedOncePerKind) {
    const std::tuple<RawHttpServer::Answer, const wchar_t*> failures[] = {
        {RawHttpServer::json("", "404 secret"), L"服务返回错误 404"},
        {RawHttpServer::text("200 OK", "Content-Type: text/plain\r\n", "{}"), L"服务返回错误 500"},
        {RawHttpServer::json("{secret"), L"无法识别服务的应答"},
        {answerOf(R"([{"id":"a"},{"id":5}])"), L"无法识别服务的应答"},
        {{"HTTP"}, L"与服务的连接失败"},
    };
    for (const auto& [reply, reason] : failures) {
        answer(kDone);
        EXPECT_TRUE(manager.MoveCatalog(L"i", 1));
        host.log.written.clear();
        answer(reply);
        EXPECT_FALSE(list() || list());
        EXPECT_EQ(LastFailure(), reason);
        EXPECT_THAT(host.log.written, ElementsAre(Pair(L"操作失败", L"技术→交底管理→" + std::wstring(reason))));
    }
    host.web.address = L"127.0.0.1:1";
    EXPECT_FALSE(list());
    EXPECT_EQ(LastFailure(), L"与服务的连接失败");
    host.web.address.clear();
    EXPECT_FALSE(list());
    EXPECT_TRUE(catalogs.empty() && host.rest.reported.empty() && host.rest.renewed.empty());
    const auto never = []() -> bool { throw 1; };
    EXPECT_FALSE(CallService([](auto) -> bool { throw 42; }, never));
    EXPECT_EQ(LastFailure(), L"程序内部错误");
    host.rest.renewals = {true};
    EXPECT_FALSE(CallService(
        [](auto) -> bool { throw io::swagger::client::api::ApiException(302, _XPLATSTR("302 error")); }, never));
    host.managers.clear();
    EXPECT_FALSE(CallService([](auto) -> bool { throw 42; }, never));
}

TEST_F(ServiceCallTest, TheSessionMayBeMissingOrEmptyAndTheAddressMayEndInASlash) {
    server.then(kDone);
    host.web.hasCookie = false;
    host.web.address += L"/";
    EXPECT_TRUE(manager.MoveCatalog(L"i", 1));
    EXPECT_EQ(last().header("Cookie"), "JSESSIONID=");
    EXPECT_EQ(last().target, "/rs/disclosure/catalog/move");

    host.web.hasSession = false;  // the client made last stays
    host.web.address = L"127.0.0.1:1";
    EXPECT_TRUE(manager.MoveCatalog(L"i", 1));
    host.managers.erase(BASECORE::NAMES::kWebService);
    EXPECT_TRUE(manager.MoveCatalog(L"i", 1));
    EXPECT_EQ(server.requests().size(), 3U);
}

/// A dialog whose user gives up as soon as that is offered.
struct Impatient : BIMScrollBar::KnSbInterface {
    Impatient() { Install(this); }
    virtual ~Impatient() { Install(nullptr); }
    void ShowProgressDialog(const std::wstring&, const std::wstring&) override {}
    void CloseProgressDialog() override {}
    bool ShowWaiting(bool canCancel, int64_t, int64_t) override {
        (canCancel ? offered : refused)++;
        return !canCancel;
    }
    int offered = 0;
    int refused = 0;
};

TEST_F(ServiceCallTest, AReadCanBeGivenUpAndAChangeCannot) {
    struct Config final : BASECORE::FRAME::CMgrObject, PROJECTPACKAGE::IKpxClientConfigMgr {
        using CMgrObject::CMgrObject;
        std::wstring GetValue(const std::wstring& key) const override {
            return key == L"Service/SilenceSeconds" ? L"4" : L"";
        }
        bool SetValue(const std::wstring&, const std::wstring&) override { return false; }
    } settings{BASECORE::NAMES::kClientConfig};
    host.managers[BASECORE::NAMES::kClientConfig] = &settings;
    Impatient dialog;
    server.then(RawHttpServer::Answer{});
    EXPECT_FALSE(list());
    EXPECT_EQ(LastFailure(), L"已取消");
    EXPECT_GT(std::exchange(dialog.offered, 0), 0);
    EXPECT_FALSE(manager.MoveCatalog(L"i", 1));
    EXPECT_EQ(LastFailure(), L"服务没有按时应答") << "its time is up";
    EXPECT_EQ(dialog.offered, 0);
    EXPECT_GT(dialog.refused, 1);
}

}  // namespace
