#include <algorithm>

#include "service/store/NameIndex.h"
#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

namespace {

/// Catalogs this small are read through at once, whatever else is asked.
constexpr std::int64_t SmallCatalog = 1000;

void bindValues(soci::statement& statement, const TaskSql& sql) {
    for (const auto& [name, value] : sql.values)
        statement.exchange(use(value, name));
}

}  // namespace

std::vector<std::int64_t> SqlStore::readNumbers(const TaskSql& sql) {
    std::vector<std::int64_t> numbers;
    std::int64_t number = 0;
    m_statements.eachOfOnce(
        sql.text, [&] { numbers.push_back(number); },
        [&](soci::statement& statement) {
            statement.exchange(into(number));
            bindValues(statement, sql);
        });
    return numbers;
}

std::optional<TaskScope> SqlStore::scopeOf(const TaskFilter& filter) {
    TaskScope scope;
    int isTop = 1;
    std::int64_t direct = 0;
    std::int64_t below = 0;
    std::int64_t all = 0;
    const bool found = filter.catalogId.empty()
                           ? m_statements.one(queries::DepartmentTasks, into(below), use(filter.deptId, "dept"))
                           : m_statements.one(queries::SubtreeNumbers, into(isTop), into(direct), into(below),
                                              into(all), use(filter.deptId, "dept"), use(filter.catalogId, "id"));
    if (!found)
        return std::nullopt;
    scope.whole = isTop != 0;
    scope.single = !scope.whole && direct == below;
    scope.tasks = below;
    scope.departmentTasks = scope.whole ? below : all;
    return scope;
}

/// The way with the fewest tasks on it, found by counting each no further than the best so far.
TaskPlan::Path SqlStore::bestPath(const TaskPlan& plan, const TaskScope& scope) {
    const auto& paths = plan.paths();
    if (paths.size() == 1 || (paths.front() == TaskPlan::Path::Catalog && scope.tasks <= SmallCatalog))
        return paths.front();
    TaskPlan::Path best = paths.front();
    std::int64_t fewest = scope.tasks;
    for (const TaskPlan::Path path : paths) {
        if (path == TaskPlan::Path::Catalog)
            continue;
        const std::int64_t number = readNumbers(plan.probe(path, fewest)).front();
        if (number < fewest) {
            fewest = number;
            best = path;
        }
    }
    return best;
}

TaskPage SqlStore::pageTasks(const TaskFilter& filter) {
    TaskPage page;
    const auto scope = scopeOf(filter);
    if (!scope || scope->tasks == 0)
        return page;
    const TaskPlan plan(filter, *scope);
    const auto path = plan.paths().empty() ? TaskPlan::Path::Catalog : bestPath(plan, *scope);
    page.total = plan.isFiltered() ? readNumbers(plan.count(path)).front() : scope->tasks;
    if (filter.offset >= page.total)
        return page;
    auto rids = readNumbers(plan.page(path, page.total));
    if (plan.reversed(page.total))
        std::reverse(rids.begin(), rids.end());
    page.tasks = readTasks(filter.deptId, rids);
    return page;
}

OwnTaskPage SqlStore::pageOwnTasks(const OwnTaskFilter& filter) {
    const std::string inDept = filter.deptId.empty() ? "" : " AND t.dept_id = :dept";
    const std::string given = "SELECT t.rid FROM task t INDEXED BY task_of_discloser WHERE t.discloser = :username";
    const std::string received =
        "SELECT t.rid FROM task_receiver r CROSS JOIN task t WHERE r.username = :username AND t.rid = r.task_rid "
        "AND t.published = 1";
    std::string own;
    if (filter.role != OwnTaskFilter::Role::Receiver)
        own = given + inDept;
    if (filter.role != OwnTaskFilter::Role::Discloser)
        own += (own.empty() ? "" : " UNION ") + received + inDept;
    std::string from = "FROM own o CROSS JOIN task t WHERE t.rid = o.rid AND t.plan_disclosure BETWEEN " +
                       std::to_string(filter.from) + " AND " + std::to_string(filter.to);
    TaskSql sql;
    sql.values.emplace_back("username", filter.username);
    if (!filter.deptId.empty())
        sql.values.emplace_back("dept", filter.deptId);
    if (!filter.discloser.empty()) {
        from += " AND t.discloser = :discloser";
        sql.values.emplace_back("discloser", filter.discloser);
    }
    if (!filter.keyword.empty()) {
        from += " AND INSTR(t.search_name, :keyword) > 0";
        sql.values.emplace_back("keyword", searchForm(filter.keyword));
    }
    const std::string with = "WITH own(rid) AS (" + own + ") ";
    OwnTaskPage page;
    sql.text = with + "SELECT COUNT(*) " + from;
    page.total = readNumbers(sql).front();

    OwnTask t;
    m_statements.eachOfOnce(
        with +
            "SELECT t.task_id, t.name, t.plan_disclosure, t.expiry, t.actual_disclosure, "
            "CASE WHEN t.deadline <= " +
            std::to_string(filter.now) + " THEN 4 ELSE t.state END " + from +
            " ORDER BY t.updated_at DESC, t.rid DESC LIMIT " + std::to_string(filter.limit) + " OFFSET " +
            std::to_string(filter.offset),
        [&] { page.tasks.push_back(t); },
        [&](soci::statement& statement) {
            statement.exchange(into(t.id));
            statement.exchange(into(t.name));
            statement.exchange(into(t.planDisclosure));
            statement.exchange(into(t.expiry));
            statement.exchange(into(t.actualDisclosure));
            statement.exchange(into(t.status));
            bindValues(statement, sql);
        });
    return page;
}

}  // namespace disclosure
