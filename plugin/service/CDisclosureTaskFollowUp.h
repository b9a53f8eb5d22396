#pragma once

#include "sdk/packages/disclosure/IDisclosureTaskFollowUp.h"

namespace DISCLOSUREPACKAGE {

/// The operations on tasks that `IDisclosureManageMgr`, whose slots are fixed, has no room for.
class CDisclosureTaskFollowUp final : public IDisclosureTaskFollowUp {
public:
    bool ConfirmByReceiver(const std::wstring& taskId) override;
    bool ConfirmByDiscloser(const std::wstring& taskId, const std::wstring& remark,
                            const std::vector<AttachementRecord>& attachements) override;
    bool UrgeReceivers(const std::wstring& taskId) override;
    bool ListOperationLog(const std::wstring& taskId, std::vector<OperationLogRecord>& entries) override;
    bool PageOwnTasks(const OwnTaskQuery& query, std::vector<OwnTaskRecord>& tasks, int32_t& total) override;
    bool QueryConditions(std::vector<TaskCondition>& departments, std::vector<TaskCondition>& people) override;
};

}  // namespace DISCLOSUREPACKAGE
