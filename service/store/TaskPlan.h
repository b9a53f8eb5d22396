#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "service/ports/TaskRecords.h"
#include "service/store/BoundSql.h"

namespace disclosure {

/// What the catalogs know of a catalog's subtree without looking at a task.
struct TaskScope {
    bool whole = false;   // everything the department has
    bool single = false;  // all the tasks are directly in the catalog
    std::int64_t tasks = 0;
    std::int64_t departmentTasks = 0;
    std::int64_t going = 0;  // tasks of the department that went with their catalog and are still to be cleared away
};

/// How the tasks of one filter are found. Every statement names the index it reads, so that no statistics can talk the
/// database into another; which of them is read is decided by counting, so that what a page costs depends on what
/// matches, not on what is stored.
class TaskPlan {
public:
    enum class Path { Catalog, Names, Date, Status };

    TaskPlan(const TaskFilter& filter, const TaskScope& scope);

    /// Whether anything but the catalog is asked for.
    bool isFiltered() const { return !m_paths.empty() && m_paths.back() != Path::Catalog; }
    /// Whether nothing but a status is asked for, of the whole department.
    bool isStatusOfAll() const { return m_paths.size() == 1 && m_paths.front() == Path::Status && m_scope.going == 0; }
    /// The ways to the tasks, the likely best first.
    const std::vector<Path>& paths() const { return m_paths; }
    /// The number of tasks that lie on the way, counted up to `most`.
    BoundSql probe(Path path, std::int64_t most) const;
    BoundSql count(Path path) const;
    /// The numbers of the page's tasks out of `total`, in order when `reversed()` is false, else from the last.
    BoundSql page(Path path, std::int64_t total) const;
    /// The second half of the list is read from its end.
    bool reversed(std::int64_t total) const { return m_filter.offset > total / 2; }

private:
    std::string with() const;
    std::string from(Path path) const;
    std::string conditions(Path path) const;
    bool isOrdered(Path path) const;
    BoundSql statement(std::string text) const;

    TaskFilter m_filter;
    TaskScope m_scope;
    std::string m_keyword;
    std::vector<Path> m_paths;
};

}  // namespace disclosure
