#pragma once

#include "service/ports/TaskRecords.h"

namespace disclosure {

/// The lists of tasks, a page at a time.
class ITaskPages {
public:
    virtual TaskPage pageTasks(const TaskFilter& filter) = 0;
    virtual OwnTaskPage pageOwnTasks(const OwnTaskFilter& filter) = 0;

protected:
    ~ITaskPages() = default;
};

}  // namespace disclosure
