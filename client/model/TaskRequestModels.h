#pragma once

#include "client/model/CommonModels.h"
#include "client/model/TaskModels.h"

/// The request bodies of the task controller.
namespace io::swagger::client::model {

class DisclosureTaskReceiveUserSaveRequest : public DisclosureTaskReceiveUser {};
class DisclosureTaskViewportSaveRequest : public DisclosureTaskViewport {};
class DisclosureTaskNodeSaveRequest : public DisclosureTaskNode {};
class DisclosureTaskDocSaveRequest : public DisclosureTaskDoc {};

class DisclosureTaskSaveRequest : public TaskContent<WithDept> {
    MODEL_FIELD(ListOf<DisclosureTaskReceiveUserSaveRequest>, disclosureTaskReceiveUserList,
                DisclosureTaskReceiveUserList)
    MODEL_FIELD(ListOf<DisclosureTaskViewportSaveRequest>, disclosureTaskViewportList, DisclosureTaskViewportList)
    MODEL_FIELD(ListOf<DisclosureTaskNodeSaveRequest>, disclosureTaskNodeList, DisclosureTaskNodeList)
    MODEL_FIELD(ListOf<DisclosureTaskDocSaveRequest>, disclosureTaskDocList, DisclosureTaskDocList)
};

/// The changes of a task: what is absent stays as it is.
class DisclosureTaskUpdateRequest : public TaskContent<WithId> {
    MODEL_FIELD(ListOf<DisclosureTaskReceiveUserSaveRequest>, saveDisclosureTaskReceiveUserList,
                SaveDisclosureTaskReceiveUserList)
    MODEL_FIELD(std::vector<utility::string_t>, delDisclosureTaskReceiveUserIds, DelDisclosureTaskReceiveUserIds)
    MODEL_FIELD(ListOf<DisclosureTaskViewportSaveRequest>, saveDisclosureTaskViewportList,
                SaveDisclosureTaskViewportList)
    MODEL_FIELD(std::vector<utility::string_t>, delDisclosureTaskViewportIds, DelDisclosureTaskViewportIds)
    MODEL_FIELD(ListOf<DisclosureTaskNodeSaveRequest>, saveDisclosureTaskNodeList, SaveDisclosureTaskNodeList)
    MODEL_FIELD(std::vector<utility::string_t>, delDisclosureTaskNodeIds, DelDisclosureTaskNodeIds)
    MODEL_FIELD(ListOf<DisclosureTaskDocSaveRequest>, saveDisclosureTaskDocList, SaveDisclosureTaskDocList)
    MODEL_FIELD(std::vector<utility::string_t>, delDisclosureTaskDocIds, DelDisclosureTaskDocIds)
};

class DisclosureTaskBatchDelRequest : public Model {
    MODEL_FIELD(std::vector<utility::string_t>, ids, Ids)
};

class DisclosureTaskConfirmByReceiveUserRequest : public Model {
    MODEL_FIELD(utility::string_t, taskId, TaskId)
};

class DisclosureTaskConfirmByDisclosureUserRequest : public Model {
    MODEL_FIELD(utility::string_t, taskId, TaskId)
    MODEL_FIELD(utility::string_t, confirmRemark, ConfirmRemark)
    MODEL_FIELD(ListOf<AttachementSaveRequest>, attachementList, AttachementList)
};

class DisclosureTaskUrgeRequest : public Model {
    MODEL_FIELD(utility::string_t, taskId, TaskId)
};

class DisclosureTaskOperationLogSaveRequest : public WithDept {
    MODEL_FIELD(utility::string_t, disclosureTaskId, DisclosureTaskId)
    MODEL_FIELD(int32_t, opType, OpType)
    MODEL_FIELD(utility::string_t, refSourceId, RefSourceId)
    MODEL_FIELD(utility::string_t, sourceName, SourceName)
    MODEL_FIELD(utility::string_t, sourceUuid, SourceUuid)
    MODEL_FIELD(utility::string_t, sourceMd5, SourceMd5)
    MODEL_FIELD(int32_t, sourceSize, SourceSize)
    MODEL_FIELD(utility::string_t, sourceExtension, SourceExtension)
};

class DisclosureTaskPushConfigSaveRequest : public PushSettings<WithDept> {};
class DisclosureTaskPushConfigUpdateRequest : public PushSettings<WithId> {};

/// What a page of tasks is asked by, as one record.
class DisclosureTaskQueryRequest : public Model {
    MODEL_FIELD(int32_t, currentPage, CurrentPage)
    MODEL_FIELD(int32_t, pageSize, PageSize)
    MODEL_FIELD(utility::string_t, deptId, DeptId)
    MODEL_FIELD(utility::string_t, disclosureCatalogId, DisclosureCatalogId)
    MODEL_FIELD(int32_t, status, Status)
    MODEL_FIELD(utility::string_t, keyword, Keyword)
    MODEL_FIELD(int32_t, dateType, DateType)
    MODEL_FIELD(int64_t, startDateMills, StartDateMills)
    MODEL_FIELD(int64_t, endDateMills, EndDateMills)
    MODEL_FIELD(utility::string_t, orderKey, OrderKey)
    MODEL_FIELD(utility::string_t, orderType, OrderType)
};

}  // namespace io::swagger::client::model
