#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/Records.h"
#include "service/ports/TaskRecords.h"

namespace disclosure {

/// The tasks of the departments with what belongs to them. Their numbers in the catalogs follow by themselves.
class ITaskStore {
public:
    virtual std::optional<Task> task(const std::string& deptId, const std::string& id) = 0;
    /// The tasks of this id that the person may see: those of their departments, those they are to disclose, and the
    /// published ones they are to receive.
    virtual std::vector<TaskKey> tasksOfPerson(const std::string& username, const std::string& id) = 0;

    virtual void addTask(const Task& task) = 0;
    /// Adds many at once, of which `countTasks` must follow. Their lists and their progress are taken over, attachments
    /// and remarks on confirmations not.
    virtual void addTasks(const std::vector<Task>& tasks) = 0;
    /// Makes all the numbers of the department's tasks anew.
    virtual void countTasks(const std::string& deptId) = 0;
    /// Makes the stored task and its lists equal to `task`, found by its number; it was `before`. Writes what differs.
    virtual void putTask(const Task& task, const Task& before) = 0;
    /// Removes tasks of one department, and notes `entry` for each.
    virtual void removeTasks(const std::vector<TaskKey>& keys, const LogEntry& entry) = 0;

protected:
    ~ITaskStore() = default;
};

}  // namespace disclosure
