#pragma once

#include "client/model/Field.h"

/// What the records that go to the task controller and those that come from it have in common. Fields ending in "Mills"
/// are milliseconds since 1970-01-01 UTC; flags are 0 or 1.
namespace io::swagger::client::model {

class WithId : public Model {
    MODEL_FIELD(utility::string_t, id, Id)
};

class WithDept : public WithId {
    MODEL_FIELD(utility::string_t, deptId, DeptId)
};

/// What people write down about a task, below the `Head` of the record.
template <class Head>
class TaskContent : public Head {
    MODEL_FIELD(utility::string_t, disclosureCatalogId, DisclosureCatalogId)
    MODEL_FIELD(utility::string_t, name, Name)
    MODEL_FIELD(utility::string_t, disclosureUserName, DisclosureUserName)
    MODEL_FIELD(int64_t, constructionStartDateMills, ConstructionStartDateMills)
    MODEL_FIELD(int64_t, constructionEndDateMills, ConstructionEndDateMills)
    MODEL_FIELD(int64_t, planDisclosureDateMills, PlanDisclosureDateMills)
    MODEL_FIELD(int64_t, actualDisclosureDateMills, ActualDisclosureDateMills)
    MODEL_FIELD(int64_t, expiryDateMills, ExpiryDateMills)
    MODEL_FIELD(int32_t, isPublish, IsPublish)
    MODEL_FIELD(utility::string_t, remark, Remark)
};

/// When and how often a department's people are reminded, below the `Head` of the record.
template <class Head>
class PushSettings : public Head {
    MODEL_FIELD(int32_t, isNotifyAdvance, IsNotifyAdvance)
    MODEL_FIELD(int32_t, daysNotifyAdvance, DaysNotifyAdvance)
    MODEL_FIELD(int32_t, advanceNotifyFrequency, AdvanceNotifyFrequency)
    MODEL_FIELD(int32_t, isNotifyOverdue, IsNotifyOverdue)
    MODEL_FIELD(int32_t, overdueNotifyFrequency, OverdueNotifyFrequency)
};

/// Something that belongs to a task.
class OfTask : public WithId {
    MODEL_FIELD(utility::string_t, disclosureTaskId, DisclosureTaskId)
};

class DisclosureTaskReceiveUser : public OfTask {
    MODEL_FIELD(utility::string_t, userName, UserName)
};

class DisclosureTaskViewport : public OfTask {
    MODEL_FIELD(int32_t, ppid, Ppid)
    MODEL_FIELD(utility::string_t, viewportId, ViewportId)
};

class DisclosureTaskNode : public OfTask {
    MODEL_FIELD(int32_t, ppid, Ppid)
    MODEL_FIELD(utility::string_t, nodeId, NodeId)
};

class DisclosureTaskDoc : public OfTask {
    MODEL_FIELD(int32_t, ppid, Ppid)
    MODEL_FIELD(utility::string_t, name, Name)
    MODEL_FIELD(utility::string_t, uuid, Uuid)
    MODEL_FIELD(utility::string_t, md5, Md5)
    MODEL_FIELD(int32_t, size, Size)
    MODEL_FIELD(utility::string_t, extension, Extension)
    MODEL_FIELD(int32_t, sourceType, SourceType)
    MODEL_FIELD(utility::string_t, refDocId, RefDocId)
};

}  // namespace io::swagger::client::model
