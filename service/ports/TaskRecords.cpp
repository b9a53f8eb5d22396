#include "service/ports/TaskRecords.h"

#include <algorithm>

namespace disclosure {

TaskStatus Task::state() const {
    if (!published)
        return TaskStatus::Waiting;
    const auto confirmed =
        std::count_if(receivers.begin(), receivers.end(), [](const TaskReceiver& r) { return r.confirmedAt != 0; });
    if (confirmedAt != 0 && confirmed == std::ssize(receivers))
        return TaskStatus::Disclosed;
    return confirmedAt != 0 || confirmed > 0 ? TaskStatus::Disclosing : TaskStatus::Waiting;
}

std::int64_t Task::deadline() const {
    return expiry == 0 || state() == TaskStatus::Disclosed ? Never : expiry + Day;
}

}  // namespace disclosure
