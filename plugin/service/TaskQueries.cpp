#include <algorithm>

#include "client/api/DisclosureTaskControllerApi.h"
#include "plugin/service/CDisclosureManageMgr.h"
#include "plugin/service/Perform.h"
#include "plugin/service/TaskRecords.h"

namespace DISCLOSUREPACKAGE {

using TaskApi = io::swagger::client::api::DisclosureTaskControllerApi;

bool CDisclosureManageMgr::PageTasks(const TaskQuery& query, std::vector<TaskRecord>& tasks, int32_t& total) {
    m_heldBefore.clear();
    m_lastPage.clear();
    return Perform<TaskApi>(
        *this, &IDisclosureManageMgr::PageTasks, std::tie(query, tasks, total), [&](const TaskApi& api) {
            const auto answer = AwaitRead(
                api, api.pageDisclosureTaskByDeptIdAndCatalogId(
                         ToService(query.deptId), ToService(query.disclosureCatalogId), query.status,
                         ToService(query.keyword), query.dateType, query.startDateMills, query.endDateMills,
                         query.currentPage, query.pageSize, ToService(query.orderKey), ToService(query.orderType)));
            if (!answer || !answer->getResult())
                return false;
            m_heldBefore = tasks;
            AppendPage(*answer->getResult(), tasks, total);
            m_lastPage = answer->getResult()->getResult();
            return true;
        });
}

bool CDisclosureManageMgr::FindCachedTask(const std::wstring& id, TaskRecord& task) {
    const auto held = std::find_if(m_heldBefore.begin(), m_heldBefore.end(),
                                   [&](const TaskRecord& cached) { return cached.id == id; });
    if (held != m_heldBefore.end()) {
        task = *held;
        return true;
    }
    const auto sought = ToService(id);
    const auto found = std::find_if(m_lastPage.begin(), m_lastPage.end(),
                                    [&](const auto& cached) { return cached && cached->getId() == sought; });
    if (found == m_lastPage.end())
        return false;
    task = ToRecord(**found);
    return true;
}

bool CDisclosureManageMgr::QueryTaskById(const std::wstring& id, TaskRecord& task) {
    return Perform<TaskApi>(*this, &IDisclosureManageMgr::QueryTaskById, std::tie(id, task), [&](const TaskApi& api) {
        const auto answer = AwaitRead(api, api.getDisclosureTaskById(ToService(id)));
        if (!answer || !answer->getResult())
            return false;
        task = ToRecord(*answer->getResult());
        return true;
    });
}

bool CDisclosureManageMgr::QueryPushConfig(const std::wstring& deptId, PushConfig& config) {
    const std::wstring asked = deptId;  // which may be the record's own
    config = {};
    return Perform<TaskApi>(*this, &IDisclosureManageMgr::QueryPushConfig, std::tie(asked, config),
                            [&](const TaskApi& api) {
                                const auto answer = AwaitRead(api, api.queryPushConfig(ToService(asked)));
                                if (!answer)
                                    return false;
                                if (answer->getResult())  // a department without settings has none
                                    config = ToRecord(*answer->getResult());
                                return true;
                            });
}

}  // namespace DISCLOSUREPACKAGE
