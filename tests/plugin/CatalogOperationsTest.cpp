#include <functional>
#include <gmock/gmock.h>

#include "plugin/service/ServiceCall.h"
#include "tests/plugin/ManagerTest.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using support::kDone;
using support::kExpired;
using support::RawHttpServer;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const RawHttpServer::Answer kLoginPage = RawHttpServer::text("200 OK", "Content-Type: text/html\r\n", "<html>");
const RawHttpServer::Answer kTwoCatalogs = RawHttpServer::json(
    R"({"code":200,"result":[{"id":"b","name":"二","parentId":"","taskNumber":3,"sort":9},null,{}]})");

class CatalogOperationsTest : public support::ManagerTest {
protected:
    bool list(const std::wstring& deptId = L"d") { return manager.ListCatalogs(catalogs, deptId); }

    /// Operations of catalogs and tasks, each a call that would reach the service.
    const std::vector<std::function<bool()>> operations{
        [this] { return manager.SaveCatalog(record); },
        [this] { return list(); },
        [this] { return manager.DeleteCatalog(L"i"); },
        [this] { return manager.MoveCatalog(L"i", 1); },
        [this] { return manager.UpdateCatalog(record); },
        [this] { return manager.MoveTaskToCatalog(L"t-1", L"c-2"); },
        [this] { return manager.BatchDeleteTasks({L"t-1"}); },
        [this] { return manager.SavePushConfig({}); },
        [this] { return manager.UpdatePushConfig({}); },
    };

    const CatalogRecord record{L"i", L"主体 😀", L"p", 7, 8};
    std::vector<CatalogRecord> catalogs{record};
};

TEST_F(CatalogOperationsTest, EachSendsWhatItWasGiven) {
    server.then(kDone);
    const auto sent = [this](bool result) {
        EXPECT_TRUE(result);
        EXPECT_EQ(last().header("Cookie"), "JSESSIONID=session-1");
        return lastCall();
    };
    EXPECT_EQ(sent(manager.SaveCatalog(record)),
              "POST /rs/disclosure/catalog/save "
              R"({"id":"i","deptId":"dept-1","name":"主体 😀","parentId":"p"})");
    EXPECT_EQ(sent(manager.DeleteCatalog(L"i")),
              R"(DELETE /rs/disclosure/catalog/delete {"id":"i","isContainsTask":1})");
    EXPECT_EQ(sent(manager.MoveCatalog(L"i", 0)), R"(POST /rs/disclosure/catalog/move {"id":"i","offset":0})");
    EXPECT_EQ(sent(manager.UpdateCatalog(record)), R"(POST /rs/disclosure/catalog/update {"id":"i","name":"主体 😀"})");

    host.project.deptId.clear();
    EXPECT_EQ(sent(manager.SaveCatalog({})),
              R"(POST /rs/disclosure/catalog/save {"id":"","deptId":"","name":"","parentId":""})");
    EXPECT_THAT(host.rest.reported, IsEmpty());
}

TEST_F(CatalogOperationsTest, ListAppendsInOrderAndSkipsNull) {
    server.then(kTwoCatalogs);
    EXPECT_TRUE(list(L""));
    EXPECT_EQ(last().target, "/rs/disclosure/catalog/list_disclosure_catalog_by_deptid?deptId=dept-1");
    ASSERT_EQ(catalogs.size(), 3u);
    EXPECT_EQ(catalogs[0].id, L"i");
    EXPECT_EQ(catalogs[1].id + catalogs[1].name + catalogs[1].parentId, L"b二");
    EXPECT_EQ(catalogs[1].taskNumber, 3);
    EXPECT_EQ(catalogs[1].sort, 9);
    EXPECT_EQ(catalogs[2].id, L"");

    answer(answerOf("null"));
    EXPECT_TRUE(list());
    EXPECT_EQ(last().target, "/rs/disclosure/catalog/list_disclosure_catalog_by_deptid?deptId=d");
    EXPECT_EQ(catalogs.size(), 3u);
}

TEST_F(CatalogOperationsTest, WithoutAnIdNothingIsSent) {
    host.project.deptId.clear();
    EXPECT_FALSE(list(L""));
    EXPECT_FALSE(manager.DeleteCatalog(L""));
    EXPECT_FALSE(manager.MoveCatalog(L"", 1));
    EXPECT_THAT(server.requests(), IsEmpty());
}

TEST_F(CatalogOperationsTest, ARefusalIsReportedOnce) {
    for (const auto& operation : operations) {
        answer(RawHttpServer::json(R"({"code":409,"success":false,"msg":"名称已存在"})"));
        server.then(RawHttpServer::json(R"({"code":0,"success":true})"));
        host.rest.reported.clear();
        EXPECT_FALSE(operation() || operation());
        EXPECT_THAT(host.rest.reported, ElementsAre(Pair(409, L"名称已存在"), Pair(0, L"true")));
    }
    EXPECT_THAT(host.rest.renewed, IsEmpty());
    answer(RawHttpServer::json(R"({"code":409,"result":[{"id":"x"}]})"));
    EXPECT_FALSE(list());
    EXPECT_EQ(catalogs.size(), 1u);
}

TEST_F(CatalogOperationsTest, BrokenTrafficIsSilentAndChangesNothing) {
    for (const auto& broken :
         {RawHttpServer::json("", "404 Not Found"), RawHttpServer::json("{"),
          RawHttpServer::json(R"({"code":200,"result":[{"id":"a"},{"id":5}]})"),
          RawHttpServer::text("200 OK", "Content-Type: text/plain\r\n", "{}"), RawHttpServer::Answer{"HTTP", true}}) {
        answer(broken);
        EXPECT_FALSE(list()) << broken.bytes;
    }
    EXPECT_THAT(host.rest.reported, IsEmpty());
    for (const char* uncoded : {"null", R"({"success":true,"msg":"x","result":[{"id":"a"}]})"}) {
        answer(RawHttpServer::json(uncoded));
        EXPECT_FALSE(list());
        EXPECT_EQ(host.rest.reported.size(), 1u) << "no code is not 200";
        host.rest.reported.clear();
    }
    host.web.address = L"127.0.0.1:1";
    EXPECT_FALSE(list());
    host.web.address.clear();
    EXPECT_FALSE(list());
    EXPECT_EQ(catalogs.size(), 1u);
    EXPECT_THAT(host.rest.reported, IsEmpty());
    EXPECT_THAT(host.rest.renewed, IsEmpty());
}

TEST_F(CatalogOperationsTest, AnExpiredSessionIsRenewedAndTheCallRepeated) {
    for (const auto& operation : operations) {
        answer(kExpired);
        server.then(kLoginPage).then(RawHttpServer::json(R"({"code":200})"));
        host.rest.renewed.clear();
        host.rest.renewals = {true, true};
        host.web.sessionId = "old";
        EXPECT_TRUE(operation());
        const auto requests = server.requests();
        ASSERT_EQ(requests.size(), 3u);
        for (const auto& request : requests)
            EXPECT_EQ(request.method + request.target + request.body,
                      requests[0].method + requests[0].target + requests[0].body);
        const std::string path = requests[0].target.substr(0, requests[0].target.find('?'));
        EXPECT_THAT(host.rest.renewed,
                    ElementsAre(Pair(L"BuilderCommonBusinessdata", L"302 error"),
                                Pair(L"BuilderCommonBusinessdata", FromService("http://" + server.address() + path))));
    }
    EXPECT_THAT(host.rest.reported, IsEmpty());
}

TEST_F(CatalogOperationsTest, ARepeatUsesTheNewSessionAndTheDepartmentFoundBefore) {
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
    server.then(kExpired).then(kTwoCatalogs);
    EXPECT_TRUE(list(L""));
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[1].target, requests[0].target);
    EXPECT_EQ(requests[1].header("Cookie"), "JSESSIONID=fresh");
}

TEST_F(CatalogOperationsTest, ARefusedRenewalEndsTheCall) {
    server.then(kExpired);
    host.rest.renewals = {true, true, false};
    EXPECT_FALSE(manager.MoveCatalog(L"i", 1));
    EXPECT_EQ(server.requests().size(), 3u);
    host.managers.erase(BASECORE::NAMES::kRestService);
    EXPECT_FALSE(manager.MoveCatalog(L"i", 1));
    EXPECT_EQ(server.requests().size(), 4u);
}

TEST_F(CatalogOperationsTest, TheSessionMayBeMissingOrEmpty) {
    server.then(kDone);
    host.web.hasCookie = false;
    EXPECT_TRUE(manager.MoveCatalog(L"i", 1));
    EXPECT_EQ(last().header("Cookie"), "JSESSIONID=");

    host.web.hasSession = false;  // the client made last stays
    host.web.address = L"127.0.0.1:1";
    EXPECT_TRUE(manager.MoveCatalog(L"i", 1));
    host.managers.erase(BASECORE::NAMES::kWebService);
    EXPECT_TRUE(manager.MoveCatalog(L"i", 1));
    EXPECT_EQ(server.requests().size(), 3u);
}

TEST(ServiceCall, NothingIsThrown) {
    support::FakeHost host;
    host.web.address = L"127.0.0.1:1";
    const auto never = []() -> bool { throw 1; };
    EXPECT_FALSE(CallService([](auto) -> bool { throw 42; }, never));
    EXPECT_FALSE(CallService([](auto) -> bool { throw std::runtime_error("x"); }, never));
    host.rest.renewals = {true};
    EXPECT_FALSE(CallService(
        [](auto) -> bool { throw io::swagger::client::api::ApiException(302, _XPLATSTR("302 error")); }, never));
    EXPECT_EQ(host.rest.renewed.size(), 1u);
}

}  // namespace
