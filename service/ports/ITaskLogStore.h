#pragma once

#include <string>
#include <vector>

#include "service/ports/TaskRecords.h"

namespace disclosure {

/// What was done to the tasks; it outlives them.
class ITaskLogStore {
public:
    virtual void addLog(const LogEntry& entry) = 0;
    /// Notes for every task in the catalog and below it what `entry` says.
    virtual void addLogForSubtree(const LogEntry& entry, const std::string& catalogId) = 0;
    virtual std::vector<LogEntry> logOf(const std::string& deptId, const std::string& taskId) = 0;

protected:
    ~ITaskLogStore() = default;
};

}  // namespace disclosure
