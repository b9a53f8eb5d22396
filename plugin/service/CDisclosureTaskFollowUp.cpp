#include "plugin/service/CDisclosureTaskFollowUp.h"

#include "client/api/DisclosureTaskControllerApi.h"
#include "plugin/service/Perform.h"
#include "plugin/service/TaskRecords.h"
#include "plugin/service/TaskRequests.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::model;
using TaskApi = io::swagger::client::api::DisclosureTaskControllerApi;

bool CDisclosureTaskFollowUp::ConfirmByReceiver(const std::wstring& taskId) {
    return Perform<TaskApi>(*this, &IDisclosureTaskFollowUp::ConfirmByReceiver, std::tie(taskId),
                            [&](const TaskApi& api) {
                                const auto request = std::make_shared<DisclosureTaskConfirmByReceiveUserRequest>();
                                request->setTaskId(ToService(taskId));
                                return Await(api.confirmByReceiveUser(request)) != nullptr;
                            });
}

bool CDisclosureTaskFollowUp::ConfirmByDiscloser(const std::wstring& taskId, const std::wstring& remark,
                                                 const std::vector<AttachementRecord>& attachements) {
    return Perform<TaskApi>(*this, &IDisclosureTaskFollowUp::ConfirmByDiscloser, std::tie(taskId, remark, attachements),
                            [&](const TaskApi& api) {
                                ListOf<AttachementSaveRequest> files;
                                for (const auto& file : attachements)
                                    files.push_back(ToSaveRequest(file));
                                const auto request = std::make_shared<DisclosureTaskConfirmByDisclosureUserRequest>();
                                request->setTaskId(ToService(taskId));
                                request->setConfirmRemark(ToService(remark));
                                request->setAttachementList(std::move(files));
                                return Await(api.confirmByDisclousreUser(request)) != nullptr;
                            });
}

bool CDisclosureTaskFollowUp::UrgeReceivers(const std::wstring& taskId) {
    return Perform<TaskApi>(*this, &IDisclosureTaskFollowUp::UrgeReceivers, std::tie(taskId), [&](const TaskApi& api) {
        const auto request = std::make_shared<DisclosureTaskUrgeRequest>();
        request->setTaskId(ToService(taskId));
        return Await(api.urgeByDisclousreUser(request)) != nullptr;
    });
}

bool CDisclosureTaskFollowUp::ListOperationLog(const std::wstring& taskId, std::vector<OperationLogRecord>& entries) {
    return Perform<TaskApi>(*this, &IDisclosureTaskFollowUp::ListOperationLog, std::tie(taskId, entries),
                            [&](const TaskApi& api) {
                                const auto answer = AwaitRead(api, api.listOperationLogByTaskId(ToService(taskId)));
                                if (!answer)
                                    return false;
                                Append(answer->getResult(), entries);
                                return true;
                            });
}

bool CDisclosureTaskFollowUp::PageOwnTasks(const OwnTaskQuery& query, std::vector<OwnTaskRecord>& tasks,
                                           int32_t& total) {
    return Perform<TaskApi>(
        *this, &IDisclosureTaskFollowUp::PageOwnTasks, std::tie(query, tasks, total), [&](const TaskApi& api) {
            const auto answer = AwaitRead(api, api.pageDisclosureTask4StatusByCurrentUser(
                                                   ToService(query.deptId), ToService(query.keyword), query.type,
                                                   ToService(query.disclosureUsername), query.startDateMills,
                                                   query.endDateMills, query.currentPage, query.pageSize));
            if (!answer || !answer->getResult())
                return false;
            AppendPage(*answer->getResult(), tasks, total);
            return true;
        });
}

bool CDisclosureTaskFollowUp::QueryConditions(std::vector<TaskCondition>& departments,
                                              std::vector<TaskCondition>& people) {
    return Perform<TaskApi>(*this, &IDisclosureTaskFollowUp::QueryConditions, std::tie(departments, people),
                            [&](const TaskApi& api) {
                                const auto answer = AwaitRead(api, api.queryCondition4DisclosureTask());
                                if (!answer || !answer->getResult())
                                    return false;
                                Append(answer->getResult()->getDpetList(), departments);
                                Append(answer->getResult()->getUserList(), people);
                                return true;
                            });
}

}  // namespace DISCLOSUREPACKAGE
