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
    return readNumber(queries::SubtreeTasks, use(id, "id"), use(deptId, "dept")) > 0;
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

void SqlStore::removeCatalog(const std::string& deptId, const std::string& id) {
    // The tasks first: the numbers of the catalogs above follow from each while the way up still stands.
    m_statements.run(queries::RemoveSubtreeTasks, use(id, "id"), use(deptId, "dept"));
    m_statements.run("DELETE FROM catalog WHERE dept_id = :dept AND catalog_id = :id", use(deptId, "dept"),
                     use(id, "id"));
}

}  // namespace disclosure
