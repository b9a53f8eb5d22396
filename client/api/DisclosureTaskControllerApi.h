#pragma once

#include "client/api/ControllerApi.h"
#include "client/model/ResponseEntities.h"
#include "client/model/TaskRequestModels.h"

namespace io::swagger::client::api {

/// The service's tasks: pages of them, single ones, their changes, confirmations, urging, history and reminders.
class DisclosureTaskControllerApi : public ControllerApi {
public:
    using ControllerApi::ControllerApi;

    template <class Answer>
    using Pending = pplx::task<std::shared_ptr<Answer>>;

    // The name is spelled so.
    Pending<model::ResponseEntityResultState> confirmByDisclousreUser(
        const std::shared_ptr<model::DisclosureTaskConfirmByDisclosureUserRequest>&
            disclosureTaskConfirmByDisclosureUserRequest) const;
    Pending<model::ResponseEntityResultState> confirmByReceiveUser(
        const std::shared_ptr<model::DisclosureTaskConfirmByReceiveUserRequest>&
            disclosureTaskConfirmByReceiveUserRequest) const;
    Pending<model::ResponseEntityResultState> deleteDisclosureTask(
        const std::shared_ptr<model::DisclosureTaskBatchDelRequest>& disclosureTaskBatchDelRequest) const;
    Pending<model::ResponseEntityDisclosureTaskResponse> getDisclosureTaskById(const utility::string_t& id) const;
    Pending<model::ResponseEntityListDisclosureTaskOperationLogResponse> listOperationLogByTaskId(
        const utility::string_t& taskId) const;
    Pending<model::ResponseEntityQueryResultDisclosureTask4StatusResponse> pageDisclosureTask4StatusByCurrentUser(
        const utility::string_t& deptId, const utility::string_t& keyword, int32_t type,
        const utility::string_t& disclosureUsername, int64_t startDateMills, int64_t endDateMills, int32_t currentPage,
        int32_t pageSize) const;
    Pending<model::ResponseEntityQueryResultDisclosureTaskResponse> pageDisclosureTaskByDeptIdAndCatalogId(
        const utility::string_t& deptId, const utility::string_t& disclosureCatalogId, int32_t status,
        const utility::string_t& keyword, int32_t dateType, int64_t startDateMills, int64_t endDateMills,
        int32_t currentPage, int32_t pageSize, const utility::string_t& orderKey,
        const utility::string_t& orderType) const;
    Pending<model::ResponseEntityQueryCondition4DisclosureTaskResponse> queryCondition4DisclosureTask() const;
    Pending<model::ResponseEntityDisclosureTaskPushConfigResponse> queryPushConfig(
        const utility::string_t& deptId) const;
    // The parameter is named so.
    Pending<model::ResponseEntityResultState> saveDisclosureTask(
        const std::shared_ptr<model::DisclosureTaskSaveRequest>& disclosureCatalogSaveRequest) const;
    Pending<model::ResponseEntityResultState> saveOperationLog(
        const std::shared_ptr<model::DisclosureTaskOperationLogSaveRequest>& disclosureTaskOperationLogSaveRequest)
        const;
    // The parameter is named so.
    Pending<model::ResponseEntityResultState> savePushConfig(
        const std::shared_ptr<model::DisclosureTaskPushConfigSaveRequest>& disclosureTaskPushConfigRequest) const;
    Pending<model::ResponseEntityResultState> updateDisclosureTask(
        const std::shared_ptr<model::DisclosureTaskUpdateRequest>& disclosureTaskUpdateRequest) const;
    Pending<model::ResponseEntityResultState> updatePushConfig(
        const std::shared_ptr<model::DisclosureTaskPushConfigUpdateRequest>& disclosureTaskPushConfigUpdateRequest)
        const;
    // The name is spelled so.
    Pending<model::ResponseEntityResultState> urgeByDisclousreUser(
        const std::shared_ptr<model::DisclosureTaskUrgeRequest>& disclosureTaskUrgeRequest) const;
};

}  // namespace io::swagger::client::api
