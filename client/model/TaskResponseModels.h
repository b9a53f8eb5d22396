#pragma once

#include "client/model/CommonModels.h"
#include "client/model/TaskModels.h"

/// The payloads of the task controller's answers.
namespace io::swagger::client::model {

class DisclosureTaskReceiveUserResponse : public DisclosureTaskReceiveUser {
    MODEL_FIELD(utility::string_t, userRealname, UserRealname)
    MODEL_FIELD(utility::string_t, userHeadUuid, UserHeadUuid)
    MODEL_FIELD(int32_t, isConfirm, IsConfirm)
    MODEL_FIELD(int64_t, confirmDateMills, ConfirmDateMills)
};

class DisclosureTaskViewportResponse : public DisclosureTaskViewport {
    MODEL_FIELD(utility::string_t, viewportName, ViewportName)
    MODEL_FIELD(utility::string_t, viewportFileKey, ViewportFileKey)
};

class DisclosureTaskNodeResponse : public DisclosureTaskNode {
    MODEL_FIELD(utility::string_t, nodeName, NodeName)
    MODEL_FIELD(utility::string_t, uuid, Uuid)
    MODEL_FIELD(utility::string_t, thumbnailUuid, ThumbnailUuid)
};

class DisclosureTaskDocResponse : public DisclosureTaskDoc {};

/// A task with everything that belongs to it.
class DisclosureTaskResponse : public TaskContent<WithDept> {
    MODEL_FIELD(int32_t, status, Status)
    MODEL_FIELD(utility::string_t, updateBy, UpdateBy)
    MODEL_FIELD(int64_t, updateDateMills, UpdateDateMills)
    MODEL_FIELD(ListOf<DisclosureTaskReceiveUserResponse>, disclosureTaskReceiveUserList, DisclosureTaskReceiveUserList)
    MODEL_FIELD(ListOf<DisclosureTaskViewportResponse>, disclosureTaskViewportList, DisclosureTaskViewportList)
    MODEL_FIELD(ListOf<DisclosureTaskNodeResponse>, disclosureTaskNodeList, DisclosureTaskNodeList)
    MODEL_FIELD(ListOf<DisclosureTaskDocResponse>, disclosureTaskDocList, DisclosureTaskDocList)
    MODEL_FIELD(utility::string_t, deptName, DeptName)
    MODEL_FIELD(utility::string_t, disclosureUserRealname, DisclosureUserRealname)
    MODEL_FIELD(utility::string_t, disclosureUserHeadUuid, DisclosureUserHeadUuid)
    MODEL_FIELD(int32_t, isConfirm, IsConfirm)
    MODEL_FIELD(utility::string_t, confirmRemark, ConfirmRemark)
    MODEL_FIELD(int64_t, confirmDateMills, ConfirmDateMills)
    MODEL_FIELD(ListOf<AttachementResponse>, attachementList, AttachementList)
};

/// A task in the current user's own list.
class DisclosureTask4StatusResponse : public WithId {
    MODEL_FIELD(utility::string_t, name, Name)
    MODEL_FIELD(int64_t, planDisclosureDateMills, PlanDisclosureDateMills)
    MODEL_FIELD(int64_t, expiryDateMills, ExpiryDateMills)
    MODEL_FIELD(int64_t, actualDisclosureDateMills, ActualDisclosureDateMills)
    MODEL_FIELD(int32_t, status, Status)
};

class DisclosureTaskOperationLogResponse : public WithDept {
    MODEL_FIELD(utility::string_t, disclosureTaskId, DisclosureTaskId)
    MODEL_FIELD(utility::string_t, userName, UserName)
    MODEL_FIELD(int64_t, opDateMills, OpDateMills)
    MODEL_FIELD(int32_t, opType, OpType)
    MODEL_FIELD(utility::string_t, refSourceId, RefSourceId)
    MODEL_FIELD(utility::string_t, sourceName, SourceName)
    MODEL_FIELD(utility::string_t, sourceUuid, SourceUuid)
    MODEL_FIELD(utility::string_t, sourceMd5, SourceMd5)
    MODEL_FIELD(int32_t, sourceSize, SourceSize)
    MODEL_FIELD(utility::string_t, sourceExtension, SourceExtension)
    MODEL_FIELD(utility::string_t, userRealname, UserRealname)
    MODEL_FIELD(utility::string_t, userHeadUuid, UserHeadUuid)
};

class DisclosureTaskPushConfigResponse : public PushSettings<WithDept> {};

/// The departments and people that the task search offers.
class QueryCondition4DisclosureTask : public Model {
    MODEL_FIELD(ListOf<DeptResponse>, dpetList, DpetList)  // spelled so
    MODEL_FIELD(ListOf<UserResponse>, userList, UserList)
};
class QueryCondition4DisclosureTaskResponse : public QueryCondition4DisclosureTask {};
class QueryCondition4DisclosureTaskRsponse : public QueryCondition4DisclosureTask {};  // spelled so

/// One page of `M`; `totalCount` counts those of all pages.
template <class M>
class QueryResult : public Model {
    MODEL_FIELD(ListOf<M>, result, Result)
    MODEL_FIELD(int64_t, totalCount, TotalCount)
};

using QueryResultDisclosureTaskResponse = QueryResult<DisclosureTaskResponse>;
using QueryResultDisclosureTask4StatusResponse = QueryResult<DisclosureTask4StatusResponse>;

}  // namespace io::swagger::client::model
