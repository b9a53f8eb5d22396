#include <type_traits>

#include "tests/plugin/ManagerTest.h"

namespace {

using namespace DISCLOSUREPACKAGE;
using namespace testing;

static_assert(std::is_convertible_v<CDisclosureManageMgr*, IDisclosureManageMgr*>);
static_assert(!std::is_convertible_v<CDisclosureManageMgr*, PROJECTPACKAGE::IKpxProjLoadObserver*>, "private base");

class HostOperationsTest : public support::ManagerTest {};

TEST_F(HostOperationsTest, ObservesTheProjectBetweenStartupAndShutdownAndNeverVetoes) {
    object.Init();
    EXPECT_THAT(host.project.observers, IsEmpty());
    object.Startup();
    ASSERT_THAT(host.project.observers, SizeIs(1));
    const auto [observer, order] = *host.project.observers.begin();
    EXPECT_EQ(order, 5);
    observer->OnProjectLoaded(nullptr);
    observer->OnProjectSaved(nullptr);
    observer->OnProjectClosed(nullptr);
    EXPECT_TRUE(observer->CanLoadProject(nullptr) && observer->CanCloseProject(nullptr));
    object.Shutdown();
    EXPECT_THAT(host.project.observers, IsEmpty());

    // The bases stand in their order in one object.
    const BASECORE::FRAME::IMgrObject* asManager = &object;
    EXPECT_EQ(asManager->GetName(), L"APP_DISCLOSURE_MGR");
    const auto address = [](const auto* base) { return reinterpret_cast<const char*>(base); };
    EXPECT_EQ(address(&manager), address(&object));
    EXPECT_LT(address(&manager), address(asManager));
    EXPECT_LT(address(asManager), address(observer));
}

TEST_F(HostOperationsTest, AnyManagerOfTheHostMayBeMissing) {
    std::vector<std::map<std::wstring, BASECORE::FRAME::IMgrObject*>> hosts;
    hosts.push_back(host.managers);  // makes the client that stays when nobody is logged in any more
    hosts.emplace_back();
    for (const auto& [name, present] : host.managers) {
        hosts.push_back(host.managers);
        hosts.back().erase(name);
        hosts.push_back(host.managers);
        hosts.back()[name] = &object;  // registered, but not what the name promises
    }
    server.then(support::RawHttpServer::json(R"({"code":500})"));
    for (const auto& managers : hosts) {
        const auto has = [&](const wchar_t* name) {
            const auto found = managers.find(name);
            return found != managers.end() && found->second != &object;
        };
        host.managers = managers;
        object.Startup();
        EXPECT_EQ(manager.GetCurDeptId(), has(BASECORE::NAMES::kCurrentProject) ? L"dept-1" : L"");
        EXPECT_EQ(manager.GetCurDeptName(),
                  has(BASECORE::NAMES::kCurrentProject) && has(BASECORE::NAMES::kDepartments) ? L"一分部" : L"");
        EXPECT_EQ(manager.WriteFunctionLog(L"a", L"b"), has(BASECORE::NAMES::kFunctionLog) ? 0 : 1);
        host.rest.reported.clear();
        std::vector<CatalogRecord> catalogs;
        EXPECT_FALSE(manager.ListCatalogs(catalogs, L""));  // without a project there is nothing to list
        EXPECT_FALSE(manager.SaveCatalog({}));
        const std::size_t calls = has(BASECORE::NAMES::kCurrentProject) ? 2 : 1;
        EXPECT_THAT(host.rest.reported, SizeIs(has(BASECORE::NAMES::kRestService) ? calls : 0));
        object.Shutdown();
    }
}

TEST_F(HostOperationsTest, ALogWithoutALoggerWritesNothing) {
    host.log.result = 23;
    EXPECT_EQ(manager.WriteFunctionLog(L"新建目录", L"技术→交底管理→新建目录"), 23);
    EXPECT_THAT(host.log.written, ElementsAre(Pair(L"新建目录", L"技术→交底管理→新建目录")));
    struct : support::FakeFunctionLogMgr {
        PROJECTPACKAGE::IFunctionLogger* GetLogger() override { return nullptr; }
    } silent;
    host.managers[BASECORE::NAMES::kFunctionLog] = &silent;
    EXPECT_EQ(manager.WriteFunctionLog(L"a", L"b"), 1);
}

TEST(HostOperations, ThereMayBeNoHostAtAll) {
    CDisclosureManageMgr object{L"x"};
    object.Startup();
    object.Shutdown();
    std::vector<CatalogRecord> catalogs;
    EXPECT_EQ(object.GetCurDeptId() + object.GetCurDeptName(), L"");
    EXPECT_EQ(object.WriteFunctionLog(L"a", L"b"), 1);
    EXPECT_FALSE(object.ListCatalogs(catalogs, L""));
}

TEST_F(HostOperationsTest, OperationsStillToBeBuiltSayThat) {
    EXPECT_FALSE(manager.ExportTasksToExcel({}, L"f"));
    EXPECT_EQ(manager.GetLinkThumbnail({}), L"");
    EXPECT_THAT(host.log.written, SizeIs(2));
    EXPECT_EQ(host.log.written.back().second, L"技术→交底管理→查看关联缩略图：尚未提供");
}

}  // namespace
