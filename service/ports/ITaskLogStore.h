#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/TaskRecords.h"

namespace disclosure {

/// What was done to the tasks; it outlives them.
class ITaskLogStore {
public:
    virtual void addLog(const LogEntry& entry) = 0;
    /// Some of a task's entries, counted from the newest, but given the oldest first.
    virtual std::vector<LogEntry> logOf(const LogFilter& filter) = 0;
    virtual std::optional<LogEntry> logEntry(const std::string& deptId, const std::string& taskId,
                                             const std::string& id) = 0;
    /// How many of the task's entries clients have noted, counted up to `most`.
    virtual std::int64_t clientEntries(const std::string& deptId, const std::string& taskId, std::int64_t most) = 0;

protected:
    ~ITaskLogStore() = default;
};

}  // namespace disclosure
