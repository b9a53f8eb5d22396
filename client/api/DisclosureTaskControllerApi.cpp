#include "client/api/DisclosureTaskControllerApi.h"

namespace io::swagger::client::api {
namespace {

Operation operation(const utility::string_t& name, const web::http::method& method, const utility::string_t& path) {
    return {_XPLATSTR("DisclosureTaskControllerApi"), name, method, _XPLATSTR("/disclosure/task/") + path};
}

template <class Answer>
using Pending = DisclosureTaskControllerApi::Pending<Answer>;

}  // namespace

using namespace model;
using web::http::methods;

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::confirmByDisclousreUser(
    const std::shared_ptr<DisclosureTaskConfirmByDisclosureUserRequest>& disclosureTaskConfirmByDisclosureUserRequest)
    const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("confirmByDisclousreUser"), methods::POST, _XPLATSTR("confirm_by_disclosure_user")),
        Arguments().body(_XPLATSTR("disclosureTaskConfirmByDisclosureUserRequest"),
                         disclosureTaskConfirmByDisclosureUserRequest));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::confirmByReceiveUser(
    const std::shared_ptr<DisclosureTaskConfirmByReceiveUserRequest>& disclosureTaskConfirmByReceiveUserRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("confirmByReceiveUser"), methods::POST, _XPLATSTR("confirm_by_receive_user")),
        Arguments().body(_XPLATSTR("disclosureTaskConfirmByReceiveUserRequest"),
                         disclosureTaskConfirmByReceiveUserRequest));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::deleteDisclosureTask(
    const std::shared_ptr<DisclosureTaskBatchDelRequest>& disclosureTaskBatchDelRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("deleteDisclosureTask"), methods::DEL, _XPLATSTR("batchdelete")),
        Arguments().body(_XPLATSTR("disclosureTaskBatchDelRequest"), disclosureTaskBatchDelRequest));
}

Pending<ResponseEntityDisclosureTaskResponse> DisclosureTaskControllerApi::getDisclosureTaskById(
    const utility::string_t& id) const {
    return call<ResponseEntityDisclosureTaskResponse>(
        operation(_XPLATSTR("getDisclosureTaskById"), methods::GET, _XPLATSTR("query_disclosure_task_by_id/{id}")),
        Arguments().path(_XPLATSTR("id"), id));
}

Pending<ResponseEntityListDisclosureTaskOperationLogResponse> DisclosureTaskControllerApi::listOperationLogByTaskId(
    const utility::string_t& taskId) const {
    return call<ResponseEntityListDisclosureTaskOperationLogResponse>(
        operation(_XPLATSTR("listOperationLogByTaskId"), methods::GET,
                  _XPLATSTR("list_operation_log_by_taskid/{taskId}")),
        Arguments().path(_XPLATSTR("taskId"), taskId));
}

Pending<ResponseEntityQueryResultDisclosureTask4StatusResponse>
DisclosureTaskControllerApi::pageDisclosureTask4StatusByCurrentUser(const utility::string_t& deptId,
                                                                    const utility::string_t& keyword, int32_t type,
                                                                    const utility::string_t& disclosureUsername,
                                                                    int64_t startDateMills, int64_t endDateMills,
                                                                    int32_t currentPage, int32_t pageSize) const {
    return call<ResponseEntityQueryResultDisclosureTask4StatusResponse>(
        operation(_XPLATSTR("pageDisclosureTask4StatusByCurrentUser"), methods::GET,
                  _XPLATSTR("page_disclosure_task_4_status_by_currentuser")),
        Arguments()
            .query(_XPLATSTR("deptId"), deptId)
            .query(_XPLATSTR("keyword"), keyword)
            .query(_XPLATSTR("type"), type)
            .query(_XPLATSTR("disclosureUsername"), disclosureUsername)
            .query(_XPLATSTR("startDateMills"), startDateMills)
            .query(_XPLATSTR("endDateMills"), endDateMills)
            .query(_XPLATSTR("currentPage"), currentPage)
            .query(_XPLATSTR("pageSize"), pageSize));
}

Pending<ResponseEntityQueryResultDisclosureTaskResponse>
DisclosureTaskControllerApi::pageDisclosureTaskByDeptIdAndCatalogId(const utility::string_t& deptId,
                                                                    const utility::string_t& disclosureCatalogId,
                                                                    int32_t status, const utility::string_t& keyword,
                                                                    int32_t dateType, int64_t startDateMills,
                                                                    int64_t endDateMills, int32_t currentPage,
                                                                    int32_t pageSize, const utility::string_t& orderKey,
                                                                    const utility::string_t& orderType) const {
    return call<ResponseEntityQueryResultDisclosureTaskResponse>(
        operation(_XPLATSTR("pageDisclosureTaskByDeptIdAndCatalogId"), methods::GET,
                  _XPLATSTR("page_disclosure_task_by_deptid_and_catalogid")),
        Arguments()
            .query(_XPLATSTR("deptId"), deptId)
            .query(_XPLATSTR("disclosureCatalogId"), disclosureCatalogId)
            .query(_XPLATSTR("status"), status)
            .query(_XPLATSTR("keyword"), keyword)
            .query(_XPLATSTR("dateType"), dateType)
            .query(_XPLATSTR("startDateMills"), startDateMills)
            .query(_XPLATSTR("endDateMills"), endDateMills)
            .query(_XPLATSTR("currentPage"), currentPage)
            .query(_XPLATSTR("pageSize"), pageSize)
            .query(_XPLATSTR("orderKey"), orderKey)
            .query(_XPLATSTR("orderType"), orderType));
}

Pending<ResponseEntityQueryCondition4DisclosureTaskResponse>
DisclosureTaskControllerApi::queryCondition4DisclosureTask() const {
    return call<ResponseEntityQueryCondition4DisclosureTaskResponse>(
        operation(_XPLATSTR("queryCondition4DisclosureTask"), methods::GET,
                  _XPLATSTR("query_condition_4_disclosure_task")),
        Arguments());
}

Pending<ResponseEntityDisclosureTaskPushConfigResponse> DisclosureTaskControllerApi::queryPushConfig(
    const utility::string_t& deptId) const {
    return call<ResponseEntityDisclosureTaskPushConfigResponse>(
        operation(_XPLATSTR("queryPushConfig"), methods::GET, _XPLATSTR("query_push_config")),
        Arguments().query(_XPLATSTR("deptId"), deptId));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::saveDisclosureTask(
    const std::shared_ptr<DisclosureTaskSaveRequest>& disclosureCatalogSaveRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("saveDisclosureTask"), methods::POST, _XPLATSTR("save")),
        Arguments().body(_XPLATSTR("disclosureCatalogSaveRequest"), disclosureCatalogSaveRequest));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::saveOperationLog(
    const std::shared_ptr<DisclosureTaskOperationLogSaveRequest>& disclosureTaskOperationLogSaveRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("saveOperationLog"), methods::POST, _XPLATSTR("save_operation_log")),
        Arguments().body(_XPLATSTR("disclosureTaskOperationLogSaveRequest"), disclosureTaskOperationLogSaveRequest));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::savePushConfig(
    const std::shared_ptr<DisclosureTaskPushConfigSaveRequest>& disclosureTaskPushConfigRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("savePushConfig"), methods::POST, _XPLATSTR("save_push_config")),
        Arguments().body(_XPLATSTR("disclosureTaskPushConfigRequest"), disclosureTaskPushConfigRequest));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::updateDisclosureTask(
    const std::shared_ptr<DisclosureTaskUpdateRequest>& disclosureTaskUpdateRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("updateDisclosureTask"), methods::POST, _XPLATSTR("update")),
        Arguments().body(_XPLATSTR("disclosureTaskUpdateRequest"), disclosureTaskUpdateRequest));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::updatePushConfig(
    const std::shared_ptr<DisclosureTaskPushConfigUpdateRequest>& disclosureTaskPushConfigUpdateRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("updatePushConfig"), methods::POST, _XPLATSTR("update_push_config")),
        Arguments().body(_XPLATSTR("disclosureTaskPushConfigUpdateRequest"), disclosureTaskPushConfigUpdateRequest));
}

Pending<ResponseEntityResultState> DisclosureTaskControllerApi::urgeByDisclousreUser(
    const std::shared_ptr<DisclosureTaskUrgeRequest>& disclosureTaskUrgeRequest) const {
    return call<ResponseEntityResultState>(
        operation(_XPLATSTR("urgeByDisclousreUser"), methods::POST, _XPLATSTR("urge_by_disclosure_user")),
        Arguments().body(_XPLATSTR("disclosureTaskUrgeRequest"), disclosureTaskUrgeRequest));
}

}  // namespace io::swagger::client::api
