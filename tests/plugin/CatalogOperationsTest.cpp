
#include "tests/plugin/ManagerTest.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using namespace testing;
using namespace support;

const RawHttpServer::Answer kTwoCatalogs = RawHttpServer::json(
    R"({"code":200,"result":[{"id":"b","name":"二","parentId":"","taskNumber":3,"sort":9},null,{}]})");

class CatalogOperationsTest : public support::ManagerTest {
protected:
    bool list(const std::wstring& deptId = L"d") { return manager.ListCatalogs(catalogs, deptId); }

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

}  // namespace
