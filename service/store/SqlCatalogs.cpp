#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

template <class... Used>
std::vector<Catalog> SqlStore::readCatalogs(const char* query, Used&&... used) {
    Catalog c;
    return m_statements.list(query, c, into(c.deptId), into(c.id), into(c.name), into(c.parentId), into(c.sort),
                             into(c.depth), std::forward<Used>(used)...);
}

namespace {

/// So few tasks go with their catalog at once.
constexpr std::int64_t ClearedAtOnce = 500;

std::optional<Catalog> first(std::vector<Catalog> found) {
    if (found.empty())
        return std::nullopt;
    return std::move(found.front());
}

}  // namespace

std::vector<Catalog> SqlStore::catalogs(const std::string& deptId) {
    Catalog c;
    c.deptId = deptId;
    return m_statements.list(queries::Catalogs, c, into(c.id), into(c.name), into(c.parentId), into(c.sort),
                             into(c.depth), into(c.taskNumber), use(deptId, "dept"));
}

std::optional<Catalog> SqlStore::catalog(const std::string& deptId, const std::string& id) {
    return first(readCatalogs(queries::CatalogById, use(deptId, "dept"), use(id, "id")));
}

std::vector<Catalog> SqlStore::catalogsOfMember(const std::string& username, const std::string& id) {
    return readCatalogs(queries::CatalogsOfMember, use(username, "username"), use(id, "id"));
}

std::optional<Catalog> SqlStore::childNamed(const std::string& deptId, const std::string& parentId,
                                            const std::string& name) {
    return first(readCatalogs(queries::ChildNamed, use(deptId, "dept"), use(parentId, "parent"), use(name, "name")));
}

bool SqlStore::hasTopCatalog(const std::string& deptId) {
    return readNumber(queries::TopCatalogs, use(deptId, "dept")) > 0;
}

std::optional<Catalog> SqlStore::neighbour(const Catalog& catalog, Side side) {
    return first(readCatalogs(side == Side::Before ? queries::NeighbourBefore : queries::NeighbourAfter,
                              use(catalog.deptId, "dept"), use(catalog.parentId, "parent"), use(catalog.sort, "sort")));
}

std::int64_t SqlStore::catalogCount(const std::string& deptId) {
    return readNumber(queries::CatalogCount, use(deptId, "dept"));
}

std::int32_t SqlStore::nextSort(const std::string& deptId, const std::string& parentId) {
    return static_cast<std::int32_t>(readNumber(queries::NextSort, use(deptId, "dept"), use(parentId, "parent")));
}

bool SqlStore::subtreeHoldsTasks(const std::string& deptId, const std::string& id) {
    return readNumber(queries::SubtreeTasks, use(deptId, "dept"), use(id, "id")) > 0;
}

void SqlStore::addCatalog(const Catalog& c) {
    m_statements.run(
        "INSERT INTO catalog (dept_id, catalog_id, parent_id, name, sort, depth) "
        "VALUES (:dept, :id, NULLIF(:parent, ''), :name, :sort, :depth)",
        use(c.deptId, "dept"), use(c.id, "id"), use(c.parentId, "parent"), use(c.name, "name"), use(c.sort, "sort"),
        use(c.depth, "depth"));
}

void SqlStore::renameCatalog(const std::string& deptId, const std::string& id, const std::string& name) {
    m_statements.run("UPDATE catalog SET name = :name WHERE dept_id = :dept AND catalog_id = :id", use(name, "name"),
                     use(deptId, "dept"), use(id, "id"));
}

void SqlStore::placeCatalog(const std::string& deptId, const std::string& id, std::int32_t sort) {
    m_statements.run("UPDATE catalog SET sort = :sort WHERE dept_id = :dept AND catalog_id = :id", use(sort, "sort"),
                     use(deptId, "dept"), use(id, "id"));
}

bool SqlStore::isGoing(const std::string& deptId, const std::string& id) {
    return readNumber(queries::CatalogIsGoing, use(deptId, "dept"), use(id, "id")) > 0;
}

void SqlStore::removeCatalog(const Catalog& c, const LogEntry& entry) {
    const std::int64_t tasks = readNumber(queries::SubtreeTasks, use(c.deptId, "dept"), use(c.id, "id"));
    if (tasks == 0) {
        m_statements.run("DELETE FROM catalog WHERE dept_id = :dept AND catalog_id = :id", use(c.deptId, "dept"),
                         use(c.id, "id"));
        return;
    }
    m_statements.run(
        "INSERT INTO removal (dept_id, log_id, username, removed_at, tasks) VALUES (:dept, :log, :username, :time, "
        ":tasks)",
        use(c.deptId, "dept"), use(entry.id, "log"), use(entry.username, "username"), use(entry.time, "time"),
        use(tasks, "tasks"));
    const std::int64_t removal = readNumber("SELECT MAX(rid) FROM removal");
    m_statements.run(queries::UncountSubtree, use(c.deptId, "dept"), use(c.id, "id"), use(tasks, "tasks"));
    m_statements.run(queries::MarkSubtree, use(c.deptId, "dept"), use(c.id, "id"), use(removal, "removal"));
    m_statements.run("UPDATE catalog SET parent_id = NULL WHERE dept_id = :dept AND catalog_id = :id",
                     use(c.deptId, "dept"), use(c.id, "id"));
    if (tasks <= ClearedAtOnce) {
        // The tasks, the catalogs, and the removal itself; of very many catalogs the rest is left for later.
        for (int i = 0; i < 3; ++i)
            clear(removal, ClearedAtOnce);
    }
}

bool SqlStore::isAnyGoing() {
    return readNumber("SELECT COUNT(*) FROM (SELECT 1 FROM removal LIMIT 1) AS going") > 0;
}

void SqlStore::clearRemoved(std::int64_t most) {
    std::int64_t removal = 0;
    if (m_statements.one("SELECT rid FROM removal ORDER BY rid LIMIT 1", into(removal)))
        clear(removal, most);
}

void SqlStore::clear(std::int64_t removal, std::int64_t most) {
    std::int64_t rid = 0;
    const auto rids =
        m_statements.list(queries::TasksToClear, rid, into(rid), use(removal, "removal"), use(most, "most"));
    if (!rids.empty()) {
        LogEntry entry;
        entry.kind = LogEntry::Deleted;
        m_statements.one("SELECT dept_id, log_id, username, removed_at FROM removal WHERE rid = :removal",
                         into(entry.deptId), into(entry.id), into(entry.username), into(entry.time),
                         use(removal, "removal"));
        clearTasks(rids, entry);
        m_statements.run("UPDATE removal SET tasks = tasks - :cleared WHERE rid = :removal",
                         use(static_cast<std::int64_t>(rids.size()), "cleared"), use(removal, "removal"));
    } else if (m_statements.run(queries::ClearCatalogs, use(removal, "removal"), use(most, "most")) == 0) {
        m_statements.run("DELETE FROM removal WHERE rid = :removal", use(removal, "removal"));
    }
}

}  // namespace disclosure
