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
constexpr std::int64_t MostlyGoing = 7;
/// What a person's own tasks are to them, as the tables have it.
constexpr int ToReceive = 1;
constexpr int ToReceiveOfOneself = 2;
constexpr int ToDisclose = 3;

}  // namespace

std::vector<std::int64_t> SqlStore::readNumbers(const BoundSql& sql) {
    std::vector<std::int64_t> numbers;
    std::int64_t number = 0;
    m_statements.eachOfOnce(
        sql.text, [&] { numbers.push_back(number); },
        [&](soci::statement& statement) {
            statement.exchange(into(number));
            sql.bind(statement);
        });
    return numbers;
}

std::optional<TaskScope> SqlStore::scopeOf(TaskFilter& filter) {
    TaskScope scope;
    std::string top = filter.catalogId;
    int isTop = 1;
    std::int64_t direct = -1;  // not asked for
    std::int64_t below = 0;
    std::int64_t all = 0;
    const bool found =
        filter.catalogId.empty()
            ? m_statements.one(queries::DepartmentTasks, into(top), into(below), use(filter.deptId, "dept"))
            : m_statements.one(queries::SubtreeNumbers, into(isTop), into(direct), into(below), into(all),
                               use(filter.deptId, "dept"), use(filter.catalogId, "id"));
    if (!found)
        return std::nullopt;
    scope.whole = isTop != 0;
    scope.tasks = below;
    scope.departmentTasks = scope.whole ? below : all;
    scope.going = readNumber(queries::TasksGoing, use(filter.deptId, "dept"));
    // Where most only wait for being cleared away, what is there is found by its catalogs.
    if (scope.whole && scope.going > scope.tasks * MostlyGoing) {
        scope.whole = false;
        filter.catalogId = top;
    }
    scope.single = !scope.whole && direct == below;
    return scope;
}

/// The way with the fewest tasks on it, found by counting each no further than the best so far.
TaskPlan::Path SqlStore::bestPath(const TaskPlan& plan, const TaskScope& scope) {
    const auto& paths = plan.paths();
    if (paths.size() == 1 || (paths.front() == TaskPlan::Path::Catalog && scope.tasks <= SmallCatalog))
        return paths.front();
    const auto numberOf = [&](TaskPlan::Path path, std::int64_t fewest) {
        return path == TaskPlan::Path::Catalog ? fewest : readNumbers(plan.probe(path, fewest)).front();
    };
    return shortest(paths, paths.front(), scope.tasks, numberOf).first;
}

TaskPage SqlStore::pageTasks(const TaskFilter& asked) {
    TaskPage page;
    TaskFilter filter = asked;
    const auto scope = scopeOf(filter);
    if (!scope || scope->tasks == 0)
        return page;
    const TaskPlan plan(filter, *scope);
    const auto path = plan.paths().empty() ? TaskPlan::Path::Catalog : bestPath(plan, *scope);
    page.total = !plan.isFiltered()     ? scope->tasks
                 : plan.isStatusOfAll() ? countOfStatus(filter)
                                        : readNumbers(plan.count(path)).front();
    if (filter.offset >= page.total)
        return page;
    auto rids = readNumbers(plan.page(path, page.total));
    if (plan.reversed(page.total))
        std::reverse(rids.begin(), rids.end());
    page.tasks = readTasks(filter.deptId, rids);
    return page;
}

std::int64_t SqlStore::countOfStatus(const TaskFilter& filter) {
    constexpr std::int64_t LastDay = Never / Day;
    const auto count = [&](const char* query, TaskStatus state, TaskStatus other, std::int64_t from, std::int64_t to) {
        return readNumber(query, use(filter.deptId, "dept"), use(static_cast<int>(state), "state"),
                          use(static_cast<int>(other), "other"), use(from, "from"), use(to, "to"));
    };
    // Whole days by their tallies, and the day that is not over by its tasks.
    const std::int64_t today = filter.now / Day;
    const auto status = static_cast<TaskStatus>(filter.status);
    switch (status) {
        case TaskStatus::Disclosed:
            return count(queries::StatesOnDays, status, status, 0, LastDay);
        case TaskStatus::Expired:
            return count(queries::StatesOnDays, TaskStatus::Waiting, TaskStatus::Disclosing, 0, today - 1) +
                   count(queries::StatesWithin, TaskStatus::Waiting, TaskStatus::Disclosing, today * Day, filter.now);
        default:
            return count(queries::StatesOnDays, status, status, today + 1, LastDay) +
                   count(queries::StatesWithin, status, status, filter.now + 1, (today + 1) * Day - 1);
    }
}

std::int64_t SqlStore::countOfOwn(const OwnTaskFilter& filter) {
    const auto count = [&](int role, int other) {
        return readNumber(queries::OwnTasks, use(filter.username, "username"), use(role, "role"), use(other, "other"),
                          use(filter.deptId, "dept"));
    };
    switch (filter.role) {
        case OwnTaskFilter::Role::Discloser:
            return count(ToDisclose, ToDisclose);
        case OwnTaskFilter::Role::Receiver:
            return count(ToReceive, ToReceiveOfOneself);
        case OwnTaskFilter::Role::Any:
            break;
    }
    return count(ToDisclose, ToReceive);
}

OwnTaskPage SqlStore::pageOwnTasks(const OwnTaskFilter& filter) {
    using Role = OwnTaskFilter::Role;
    BoundSql sql;
    sql.texts.emplace_back("username", filter.username);
    std::string conditions;
    if (!filter.deptId.empty()) {
        conditions += " AND t.dept_id = :dept";
        sql.texts.emplace_back("dept", filter.deptId);
    }
    if (filter.from > 0 || filter.to != Never)
        conditions +=
            " AND t.plan_disclosure BETWEEN " + std::to_string(filter.from) + " AND " + std::to_string(filter.to);
    if (!filter.discloser.empty()) {
        conditions += " AND t.discloser = :discloser";
        sql.texts.emplace_back("discloser", filter.discloser);
    }
    if (!filter.keyword.empty()) {
        conditions += " AND INSTR(t.search_name, :keyword) > 0";
        sql.texts.emplace_back("keyword", searchForm(filter.keyword));
    }
    if (readNumber(queries::AnyTasksGoing) > 0)
        conditions += queries::AndIsThere;
    const bool plain = conditions.empty() || conditions == " AND t.dept_id = :dept";

    // Each way gives every task once and in their order, so that a page is merged from their beginnings.
    std::string own;
    const auto add = [&](const std::string& from) {
        own += (own.empty() ? "SELECT " : " UNION ALL SELECT ") + from + conditions;
    };
    const auto addReceived = [&](int shown) {
        add("r.task_rid AS rid FROM task_receiver r INDEXED BY task_receiver_person CROSS JOIN task t WHERE "
            "r.username = :username AND r.shown = " +
            std::to_string(shown) + " AND t.rid = r.task_rid");
    };
    if (filter.role != Role::Receiver)
        add("t.rid AS rid FROM task t INDEXED BY task_of_discloser WHERE t.discloser = :username");
    if (filter.role != Role::Discloser)
        addReceived(ToReceive);
    if (filter.role == Role::Receiver)
        addReceived(ToReceiveOfOneself);

    OwnTaskPage page;
    if (plain) {
        page.total = countOfOwn(filter);
    } else {
        sql.text = "SELECT COUNT(*) FROM (" + own + ") AS own";
        page.total = readNumbers(sql).front();
    }
    if (filter.offset >= page.total)
        return page;
    // The second half of the list is read from its end.
    const bool back = filter.offset > page.total / 2;
    const std::int64_t limit = std::min(filter.limit, page.total - filter.offset);
    const std::int64_t offset = back ? page.total - filter.offset - limit : filter.offset;
    sql.text = own + " ORDER BY rid" + (back ? " ASC" : " DESC") + " LIMIT " + std::to_string(limit) + " OFFSET " +
               std::to_string(offset);
    const auto rids = readNumbers(sql);
    OwnTask t;
    m_statements.eachOfOnce(
        "SELECT t.task_id, t.name, t.plan_disclosure, t.expiry, t.actual_disclosure, CASE WHEN t.deadline <= " +
            std::to_string(filter.now) + " THEN 4 ELSE t.state END FROM task t WHERE t.rid IN (" + listed(rids) +
            ") ORDER BY t.rid DESC",
        [&] { page.tasks.push_back(t); },
        [&](soci::statement& statement) {
            statement.exchange(into(t.id));
            statement.exchange(into(t.name));
            statement.exchange(into(t.planDisclosure));
            statement.exchange(into(t.expiry));
            statement.exchange(into(t.actualDisclosure));
            statement.exchange(into(t.status));
        });
    return page;
}

}  // namespace disclosure
