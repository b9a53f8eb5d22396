#pragma once

#include <algorithm>
#include <iterator>
#include <limits>

#include "client/model/TaskResponseModels.h"
#include "sdk/packages/disclosure/IDisclosureTaskFollowUp.h"
#include "sdk/packages/disclosure/Records.h"

/// The service's answers about tasks as the plain records of the screens. What the service left out keeps the record's
/// default.
namespace DISCLOSUREPACKAGE {

namespace model = io::swagger::client::model;

TaskReceiveUserRecord ToRecord(const model::DisclosureTaskReceiveUserResponse& user);
TaskViewportRecord ToRecord(const model::DisclosureTaskViewportResponse& viewport);
TaskNodeRecord ToRecord(const model::DisclosureTaskNodeResponse& node);
TaskDocRecord ToRecord(const model::DisclosureTaskDocResponse& doc);
AttachementRecord ToRecord(const model::AttachementResponse& file);
TaskRecord ToRecord(const model::DisclosureTaskResponse& task);
PushConfig ToRecord(const model::DisclosureTaskPushConfigResponse& config);
OperationLogRecord ToRecord(const model::DisclosureTaskOperationLogResponse& entry);
OwnTaskRecord ToRecord(const model::DisclosureTask4StatusResponse& task);
TaskCondition ToRecord(const model::DeptResponse& department);
TaskCondition ToRecord(const model::UserResponse& user);

/// In the list's order, without its nulls.
template <class M>
auto ToRecords(const model::ListOf<M>& list) {
    std::vector<decltype(ToRecord(*list.front()))> records;
    records.reserve(list.size());
    for (const auto& item : list)
        if (item)
            records.push_back(ToRecord(*item));
    return records;
}

/// Appends `list` to `records`, or nothing when it fails.
template <class M, class Record>
void Append(const model::ListOf<M>& list, std::vector<Record>& records) {
    auto read = ToRecords(list);
    records.insert(records.end(), std::make_move_iterator(read.begin()), std::make_move_iterator(read.end()));
}

template <class M, class Record>
void AppendPage(const model::QueryResult<M>& page, std::vector<Record>& records, int32_t& total) {
    Append(page.getResult(), records);
    total = static_cast<int32_t>(std::clamp<int64_t>(page.getTotalCount(), 0, std::numeric_limits<int32_t>::max()));
}

}  // namespace DISCLOSUREPACKAGE
