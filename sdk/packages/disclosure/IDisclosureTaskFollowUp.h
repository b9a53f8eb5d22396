#pragma once

#include "sdk/Export.h"
#include "sdk/packages/disclosure/Records.h"

namespace DISCLOSUREPACKAGE {

/// One entry of a task's history.
struct OperationLogRecord {
    std::wstring id;
    std::wstring deptId;
    std::wstring disclosureTaskId;
    std::wstring userName;
    int64_t opDateMills = 0;
    int32_t opType = 0;
    std::wstring refSourceId;  // what was acted on
    std::wstring sourceName;
    std::wstring sourceUuid;  // file key
    std::wstring sourceMd5;
    int32_t sourceSize = 0;  // bytes
    std::wstring sourceExtension;
    std::wstring userRealname;
    std::wstring userHeadUuid;
};

/// What a page of the current user's own tasks is asked by.
struct OwnTaskQuery {
    std::wstring deptId;
    std::wstring keyword;
    int32_t type = 0;
    std::wstring disclosureUsername;
    int64_t startDateMills = 0;
    int64_t endDateMills = 0;
    int32_t currentPage = 0;
    int32_t pageSize = 0;
};

/// A task in the current user's own list.
struct OwnTaskRecord {
    std::wstring id;
    std::wstring name;
    int64_t planDisclosureDateMills = 0;
    int64_t expiryDateMills = 0;
    int64_t actualDisclosureDateMills = 0;
    int32_t status = 0;
};

/// A department or person that tasks can be searched by.
struct TaskCondition {
    std::wstring key;  // department id or login name
    std::wstring name;
    std::wstring headUuid;  // file key of a person's portrait
};

/// What happens to a task after it has been published: who has confirmed it, who is urged, what was done to it. Called
/// as `IDisclosureManageMgr` is: on the UI thread, true on success, nothing is ever thrown; out parameters stay as they
/// were on failure.
class HOSTSDK_API IDisclosureTaskFollowUp {
public:
    /// The current user confirms having received the briefing.
    virtual bool ConfirmByReceiver(const std::wstring& taskId) = 0;
    /// The current user confirms having given it; an attachment without an id is given one.
    virtual bool ConfirmByDiscloser(const std::wstring& taskId, const std::wstring& remark,
                                    const std::vector<AttachementRecord>& attachements) = 0;
    /// Reminds the receivers who have not confirmed yet.
    virtual bool UrgeReceivers(const std::wstring& taskId) = 0;
    /// Appends the task's history in the service's order.
    virtual bool ListOperationLog(const std::wstring& taskId, std::vector<OperationLogRecord>& entries) = 0;
    /// Appends one page of the tasks that concern the current user; `total` counts those of all pages.
    virtual bool PageOwnTasks(const OwnTaskQuery& query, std::vector<OwnTaskRecord>& tasks, int32_t& total) = 0;
    /// Appends the departments and people that the current user may search by.
    virtual bool QueryConditions(std::vector<TaskCondition>& departments, std::vector<TaskCondition>& people) = 0;

protected:
    ~IDisclosureTaskFollowUp() = default;
};

}  // namespace DISCLOSUREPACKAGE
