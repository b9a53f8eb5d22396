#include "client/api/DisclosureTaskControllerApi.h"
#include "plugin/service/CDisclosureManageMgr.h"
#include "plugin/service/Perform.h"
#include "plugin/service/TaskRecords.h"
#include "plugin/service/TaskRequests.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::model;
using io::swagger::client::api::ApiClient;
using io::swagger::client::api::ApiConfiguration;
using TaskApi = io::swagger::client::api::DisclosureTaskControllerApi;

namespace {

/// A client that also tells the service which version of the task a change was made on, so that a newer one is not
/// overwritten. 0 is an unknown version, which is not told.
std::shared_ptr<ApiClient> WithVersion(const std::shared_ptr<ApiClient>& client, int64_t version) {
    if (version <= 0)
        return client;
    const auto configuration = std::make_shared<ApiConfiguration>(*client->getConfiguration());
    configuration->getDefaultHeaders()[_XPLATSTR("X-Task-Version")] = ApiClient::parameterToString(version);
    return std::make_shared<ApiClient>(configuration);
}

}  // namespace

bool CDisclosureManageMgr::SaveTask(const TaskRecord& task) {
    return Perform<TaskApi>(*this, &IDisclosureManageMgr::SaveTask, std::tie(task), [&](const TaskApi& api) {
        return Await(api.saveDisclosureTask(ToSaveRequest(task))) != nullptr;
    });
}

bool CDisclosureManageMgr::UpdateTask(const TaskRecord& task) {
    TaskRecord loaded;
    if (!FindLoadedTask(task, loaded))
        return false;
    return Perform<std::shared_ptr<ApiClient>>(
        *this, &IDisclosureManageMgr::UpdateTask, std::tie(task), [&](const std::shared_ptr<ApiClient>& client) {
            const TaskApi api(WithVersion(client, task.updateDateMills));
            return Await(api.updateDisclosureTask(ToUpdateRequest(task, loaded))) != nullptr;
        });
}

bool CDisclosureManageMgr::FindLoadedTask(const TaskRecord& task, TaskRecord& loaded) {
    // A record that was read after the page was made from a newer task than the page holds.
    if (FindCachedTask(task.id, loaded) &&
        (loaded.updateDateMills <= 0 || loaded.updateDateMills >= task.updateDateMills))
        return true;
    return QueryTaskById(task.id, loaded);
}

bool CDisclosureManageMgr::MoveTaskToCatalog(const std::wstring& taskId, const std::wstring& catalogId) {
    return Perform<TaskApi>(*this, &IDisclosureManageMgr::MoveTaskToCatalog, std::tie(taskId, catalogId),
                            [&](const TaskApi& api) {
                                const auto request = std::make_shared<DisclosureTaskUpdateRequest>();
                                request->setId(ToService(taskId));
                                request->setDisclosureCatalogId(ToService(catalogId));
                                return Await(api.updateDisclosureTask(request)) != nullptr;
                            });
}

bool CDisclosureManageMgr::BatchDeleteTasks(const std::vector<std::wstring>& taskIds) {
    return Perform<TaskApi>(*this, &IDisclosureManageMgr::BatchDeleteTasks, std::tie(taskIds), [&](const TaskApi& api) {
        std::vector<utility::string_t> ids;
        ids.reserve(taskIds.size());
        for (const auto& id : taskIds)
            ids.push_back(ToService(id));
        const auto request = std::make_shared<DisclosureTaskBatchDelRequest>();
        request->setIds(std::move(ids));
        return Await(api.deleteDisclosureTask(request)) != nullptr;
    });
}

bool CDisclosureManageMgr::SavePushConfig(const PushConfig& config) {
    return Perform<TaskApi>(*this, &IDisclosureManageMgr::SavePushConfig, std::tie(config), [&](const TaskApi& api) {
        return Await(api.savePushConfig(ToSaveRequest(config))) != nullptr;
    });
}

bool CDisclosureManageMgr::UpdatePushConfig(const PushConfig& config) {
    return Perform<TaskApi>(*this, &IDisclosureManageMgr::UpdatePushConfig, std::tie(config), [&](const TaskApi& api) {
        return Await(api.updatePushConfig(ToUpdateRequest(config))) != nullptr;
    });
}

}  // namespace DISCLOSUREPACKAGE
