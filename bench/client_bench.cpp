#include <chrono>
#include <cpprest/http_client.h>
#include <cpprest/json.h>
#include <cstdlib>
#include <iostream>

#include <QCoreApplication>

#include "bench/Report.h"
#include "client/model/ResponseEntities.h"
#include "plugin/service/CDisclosureManageMgr.h"
#include "plugin/service/TaskRecords.h"
#include "sdk/basetools/TextConversion.h"
#include "sdk/basetools/Uuid.h"
#include "tests/support/FakeHost.h"
#include "tests/support/RawHttpServer.h"

namespace {

using namespace io::swagger::client::model;
using DISCLOSUREPACKAGE::TaskRecord;

constexpr int kCatalogs = 1000;
constexpr int kTasks = 30;

std::string uuid() {
    return BASETOOLS::ToUtf8(BASETOOLS::GenerateUUID());
}

/// `count` records, each with an id of its own and of the task's, and the rest as `fill` says.
template <class M>
ListOf<M> links(int count, const std::string& taskId, const std::function<void(M&)>& fill) {
    ListOf<M> list;
    for (int i = 0; i < count; ++i) {
        list.push_back(std::make_shared<M>());
        list.back()->setId(uuid());
        list.back()->setDisclosureTaskId(taskId);
        fill(*list.back());
    }
    return list;
}

std::shared_ptr<DisclosureTaskResponse> fullTask() {
    const auto task = std::make_shared<DisclosureTaskResponse>();
    const std::string id = uuid();
    task->setId(id);
    task->setDeptId(uuid());
    task->setDisclosureCatalogId(uuid());
    task->setName("地下室底板大体积混凝土施工技术交底");
    task->setDisclosureUserName("zhang.san");
    task->setConstructionStartDateMills(1699977600000);
    task->setConstructionEndDateMills(1702569600000);
    task->setPlanDisclosureDateMills(1699804800000);
    task->setActualDisclosureDateMills(0);
    task->setExpiryDateMills(1703174400000);
    task->setIsPublish(1);
    task->setRemark("浇筑前检查模板支撑与钢筋保护层，雨天顺延。");
    task->setStatus(3);
    task->setUpdateBy("zhang.san");
    task->setUpdateDateMills(1700000000456);
    task->setDisclosureTaskReceiveUserList(links<DisclosureTaskReceiveUserResponse>(3, id, [](auto& user) {
        user.setUserName("li.si");
        user.setUserRealname("李四");
        user.setUserHeadUuid(uuid());
        user.setIsConfirm(0);
        user.setConfirmDateMills(0);
    }));
    task->setDisclosureTaskViewportList(links<DisclosureTaskViewportResponse>(5, id, [](auto& viewport) {
        viewport.setPpid(1024);
        viewport.setViewportId(uuid());
        viewport.setViewportName("三层梁柱节点");
        viewport.setViewportFileKey(uuid());
    }));
    task->setDisclosureTaskNodeList(links<DisclosureTaskNodeResponse>(5, id, [](auto& node) {
        node.setPpid(1024);
        node.setNodeId(uuid());
        node.setNodeName("KZ-1 柱纵筋");
        node.setUuid(uuid());
        node.setThumbnailUuid(uuid());
    }));
    task->setDisclosureTaskDocList(links<DisclosureTaskDocResponse>(10, id, [](auto& doc) {
        doc.setPpid(1024);
        doc.setName("模板专项施工方案.docx");
        doc.setUuid(uuid());
        doc.setMd5("9e107d9d372bb6826bd81d3542a419d6");
        doc.setSize(204800);
        doc.setExtension("docx");
        doc.setSourceType(1);
        doc.setRefDocId("");
    }));
    task->setDeptName("一分部");
    task->setDisclosureUserRealname("张三");
    task->setDisclosureUserHeadUuid(uuid());
    task->setIsConfirm(0);
    task->setConfirmRemark("");
    task->setConfirmDateMills(0);
    task->setAttachementList({});
    return task;
}

std::string page() {
    const auto tasks = std::make_shared<QueryResultDisclosureTaskResponse>();
    ListOf<DisclosureTaskResponse> list;
    for (int i = 0; i < kTasks; ++i)
        list.push_back(fullTask());
    tasks->setResult(list);
    tasks->setTotalCount(1234);
    ResponseEntityQueryResultDisclosureTaskResponse answer;
    answer.setCode(200);
    answer.setSuccess(true);
    answer.setMsg("");
    answer.setResult(tasks);
    return answer.toJson().serialize();
}

std::string listing() {
    std::string items;
    for (int i = 0; i < kCatalogs; ++i)
        items += std::string(items.empty() ? "" : ",") + R"({"id":")" + BASETOOLS::ToUtf8(BASETOOLS::GenerateUUID()) +
                 R"(","name":"地下室底板施工交底 )" + std::to_string(i) + R"(","parentId":")" +
                 BASETOOLS::ToUtf8(BASETOOLS::GenerateUUID()) + R"(","sort":)" + std::to_string(i) +
                 R"(,"taskNumber":)" + std::to_string(i % 40) + "}";
    return R"({"code":200,"success":true,"msg":"","result":[)" + items + "]}";
}

double secondsOf(const std::function<bool()>& work) {
    const auto start = std::chrono::steady_clock::now();
    if (!work()) {
        std::cerr << "the call failed\n";
        std::exit(1);
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A request with nothing of ours, and its answer as JSON.
bool askBare(const std::string& address, const std::string& target) {
    web::http::client::http_client client("http://" + address + "/rs");
    const auto response = client.request("GET", target).get();
    return web::json::value::parse(response.extract_string().get()).at("result").size() > 0;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);  // the server needs one
    support::RawHttpServer server;
    support::FakeHost host;
    host.web.address = BASETOOLS::ToWide(server.address());
    DISCLOSUREPACKAGE::CDisclosureManageMgr manager(BASECORE::NAMES::kDisclosure);
    const auto bare = [&](const std::string& target) {
        return [&server, target] { return secondsOf([&] { return askBare(server.address(), target); }); };
    };

    server.then(support::RawHttpServer::json(listing()));
    const auto listCatalogs = [&] {
        return secondsOf([&] {
            std::vector<DISCLOSUREPACKAGE::CatalogRecord> catalogs;
            return manager.ListCatalogs(catalogs, L"dept-1") && catalogs.size() == kCatalogs;
        });
    };
    bench::Row("ListCatalogs of 1,000 catalogs / bare request and parse", 1.5, listCatalogs,
               bare("/disclosure/catalog/list_disclosure_catalog_by_deptid?deptId=dept-1"), 201);

    const std::string text = page();
    server.reset();
    server.then(support::RawHttpServer::json(text));
    DISCLOSUREPACKAGE::TaskQuery query;
    query.pageSize = kTasks;
    const auto pageTasks = [&] {
        return secondsOf([&] {
            std::vector<TaskRecord> tasks;
            int32_t total = 0;
            return manager.PageTasks(query, tasks, total) && tasks.size() == kTasks;
        });
    };
    bench::Row("PageTasks of 30 full tasks / bare request and parse", 1.5, pageTasks,
               bare("/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?pageSize=30"), 201);

    const auto readRecords = [&] {
        return secondsOf([&] {
            auto json = web::json::value::parse(text);
            ResponseEntityQueryResultDisclosureTaskResponse answer;
            answer.fromJson(json);
            std::vector<TaskRecord> tasks;
            int32_t total = 0;
            DISCLOSUREPACKAGE::AppendPage(*answer.getResult(), tasks, total);
            return tasks.size() == kTasks;
        });
    };
    const auto parse = [&] { return secondsOf([&] { return web::json::value::parse(text).size() == 4; }); };
    bench::Row("JSON text of 30 full tasks to records / parse alone", 2.0, readRecords, parse, 201);
}
