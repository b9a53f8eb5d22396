#include "service/store/TaskPlan.h"

#include <algorithm>

#include "service/store/NameIndex.h"
#include "service/store/Queries.h"

namespace disclosure {

namespace {

struct Column {
    const char* name;
    const char* index;
};

Column columnOf(TaskFilter::Order order) {
    using Order = TaskFilter::Order;
    switch (order) {
        case Order::Name:
            return {"search_name", "task_name"};
        case Order::Discloser:
            return {"discloser", "task_discloser"};
        case Order::ConstructionStart:
            return {"construction_start", "task_construction_start"};
        case Order::ConstructionEnd:
            return {"construction_end", "task_construction_end"};
        case Order::Plan:
            return {"plan_disclosure", "task_plan"};
        case Order::Actual:
            return {"actual_disclosure", "task_actual"};
        case Order::Updated:
            break;
    }
    return {"updated_at", "task_updated"};
}

TaskFilter::Order orderOf(TaskFilter::Date date) {
    using Date = TaskFilter::Date;
    using Order = TaskFilter::Order;
    switch (date) {
        case Date::Actual:
            return Order::Actual;
        case Date::Plan:
            return Order::Plan;
        case Date::ConstructionStart:
            return Order::ConstructionStart;
        case Date::ConstructionEnd:
            return Order::ConstructionEnd;
        case Date::None:
            break;
    }
    return Order::Updated;
}

constexpr auto Expired = static_cast<std::int32_t>(TaskStatus::Expired);
constexpr auto Disclosed = static_cast<std::int32_t>(TaskStatus::Disclosed);
/// Where at least one in so many tasks matches, a page is sooner found by going through the tasks in order.
constexpr std::int64_t Dense = 8;

}  // namespace

TaskPlan::TaskPlan(const TaskFilter& filter, const TaskScope& scope)
    : m_filter(filter), m_scope(scope), m_keyword(searchForm(filter.keyword)) {
    if (!scope.whole)
        m_paths.push_back(Path::Catalog);
    if (!m_keyword.empty())
        m_paths.push_back(Path::Names);
    if (filter.date != TaskFilter::Date::None)
        m_paths.push_back(Path::Date);
    if (filter.status != 0)
        m_paths.push_back(Path::Status);
}

std::string TaskPlan::with() const {
    if (m_scope.whole || m_scope.single)
        return {};
    return "WITH RECURSIVE subtree(catalog_id) AS (SELECT CAST(:catalog AS VARCHAR(64)) UNION ALL SELECT c.catalog_id "
           "FROM subtree s CROSS JOIN catalog c WHERE c.dept_id = :dept AND c.parent_id = s.catalog_id) ";
}

std::string TaskPlan::from(Path path) const {
    const auto indexed = [](const char* index) { return std::string("FROM task t INDEXED BY ") + index + " WHERE "; };
    switch (path) {
        case Path::Names:
            return "FROM task_gram g CROSS JOIN task t WHERE g.task_gram MATCH :grams AND t.rid = g.rowid AND ";
        case Path::Date:
            return indexed(columnOf(orderOf(m_filter.date)).index);
        case Path::Status:
            return indexed(m_filter.status == Expired ? "task_deadline" : "task_state");
        case Path::Catalog:
            break;
    }
    return indexed("task_catalog");
}

std::string TaskPlan::conditions(Path path) const {
    std::string text = "t.dept_id = :dept";
    if (!m_scope.whole)
        text +=
            m_scope.single ? " AND t.catalog_id = :catalog" : " AND t.catalog_id IN (SELECT catalog_id FROM subtree)";
    const std::string now = std::to_string(m_filter.now);
    if (m_filter.status == Expired)
        text += " AND t.deadline <= " + now;
    else if (m_filter.status != 0)
        text += " AND t.state = " + std::to_string(m_filter.status) +
                (m_filter.status == Disclosed ? "" : " AND t.deadline > " + now);
    if (m_filter.date != TaskFilter::Date::None)
        text += std::string(" AND t.") + columnOf(orderOf(m_filter.date)).name + " BETWEEN " +
                std::to_string(m_filter.from) + " AND " + std::to_string(m_filter.to);
    if (!m_keyword.empty() && !(path == Path::Names && gramQueryIsExact(m_keyword)))
        text += " AND INSTR(t.search_name, :keyword) > 0";
    if (m_scope.whole && m_scope.going > 0)
        text += queries::AndIsThere;
    return text;
}

BoundSql TaskPlan::statement(std::string text) const {
    BoundSql sql{std::move(text)};
    sql.give("dept", m_filter.deptId);
    sql.give("catalog", m_filter.catalogId);
    sql.give("keyword", m_keyword);
    sql.give("grams", gramQuery(m_filter.deptId, m_keyword));
    return sql;
}

BoundSql TaskPlan::probe(Path path, std::int64_t most) const {
    TaskFilter alone = m_filter;
    if (path != Path::Date)
        alone.date = TaskFilter::Date::None;
    if (path != Path::Status)
        alone.status = 0;
    const std::string limit = " LIMIT " + std::to_string(most) + ") AS lying";
    if (path == Path::Names)
        return statement("SELECT COUNT(*) FROM (SELECT 1 FROM task_gram g WHERE g.task_gram MATCH :grams" + limit);
    alone.keyword.clear();
    const TaskPlan plan(alone, {true, false, 0, 0, 0});
    return plan.statement("SELECT COUNT(*) FROM (SELECT 1 " + plan.from(path) + plan.conditions(path) + limit);
}

BoundSql TaskPlan::count(Path path) const {
    const bool namesAlone =
        path == Path::Names && m_paths.size() == 1 && gramQueryIsExact(m_keyword) && m_scope.going == 0;
    if (namesAlone)
        return statement("SELECT COUNT(*) FROM task_gram g WHERE g.task_gram MATCH :grams");
    return statement(with() + "SELECT COUNT(*) " + from(path) + conditions(path));
}

bool TaskPlan::isOrdered(Path path) const {
    if (path == Path::Catalog)
        return m_scope.single && m_filter.order == TaskFilter::Order::Updated;
    return path == Path::Date && m_filter.order == orderOf(m_filter.date);
}

BoundSql TaskPlan::page(Path path, std::int64_t total) const {
    const Column order = columnOf(m_filter.order);
    const bool walk = total * Dense >= m_scope.departmentTasks + m_scope.going && !isOrdered(path);
    std::string text = with() + "SELECT t.rid " +
                       (walk ? std::string("FROM task t INDEXED BY ") + order.index + " WHERE " : from(path)) +
                       conditions(walk ? Path::Catalog : path);
    const bool back = reversed(total);
    const std::string direction = m_filter.descending != back ? " DESC" : " ASC";
    const std::int64_t limit = std::min(m_filter.limit, total - m_filter.offset);
    const std::int64_t offset = back ? total - m_filter.offset - limit : m_filter.offset;
    text += std::string(" ORDER BY t.") + order.name + direction + ", t.rid" + direction + " LIMIT " +
            std::to_string(limit) + " OFFSET " + std::to_string(offset);
    return statement(std::move(text));
}

}  // namespace disclosure
