#include "service/domain/Catalogs.h"

#include <algorithm>

#include "service/domain/Names.h"
#include "service/domain/NewId.h"
#include "service/domain/Refusal.h"
#include "service/ports/Changing.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

/// So that no transaction is long: tasks, or catalogs.
constexpr std::int64_t ClearedAtOnce = 200;
constexpr NameReasons Why{reasons::NameEmpty, reasons::NameTooLong, reasons::NameForbidden};

}  // namespace

void Catalogs::save(const std::string& deptId, std::string id, const std::string& name, const std::string& parentId) {
    Catalog added;
    added.deptId = deptId;
    added.parentId = parentId;
    added.name = checkedName(name, Why);

    if (id.empty()) {
        id = newId();
    } else if (!isId(id)) {
        throw Refusal(reasons::BadId);
    } else if (const auto known = m_store.catalog(deptId, id)) {
        if (known->parentId == added.parentId && known->name == added.name)
            return;
        throw Refusal(reasons::IdTaken);
    } else if (m_store.isGoing(deptId, id)) {
        throw Refusal(reasons::IdGoing);
    }
    added.id = id;

    if (parentId.empty()) {
        if (m_store.hasTopCatalog(deptId))
            throw Refusal(reasons::TopExists);
    } else {
        const auto parent = m_store.catalog(deptId, parentId);
        if (!parent)
            throw Refusal(reasons::NoParent);
        if (parent->depth >= DeepestLevel)
            throw Refusal(reasons::TooDeep);
        if (m_store.childNamed(deptId, parentId, added.name))
            throw Refusal(reasons::NameTaken);
        if (m_store.catalogCount(deptId) >= MostCatalogs)
            throw Refusal(reasons::TooManyCatalogs);
        added.depth = parent->depth + 1;
        added.sort = m_store.nextSort(deptId, parentId);
    }
    m_store.addCatalog(added);
}

void Catalogs::rename(const Catalog& catalog, const std::string& name) {
    const std::string wanted = checkedName(name, Why);
    if (wanted == catalog.name)
        return;
    if (catalog.parentId.empty())
        throw Refusal(reasons::TopKeepsName);
    if (m_store.childNamed(catalog.deptId, catalog.parentId, wanted))
        throw Refusal(reasons::NameTaken);
    m_store.renameCatalog(catalog.deptId, catalog.id, wanted);
}

void Catalogs::move(const Catalog& catalog, ICatalogStore::Side side) {
    const auto other = m_store.neighbour(catalog, side);
    if (!other)
        throw Refusal(side == ICatalogStore::Side::Before ? reasons::AlreadyFirst : reasons::AlreadyLast);
    m_store.placeCatalog(catalog.deptId, catalog.id, other->sort);
    m_store.placeCatalog(other->deptId, other->id, catalog.sort);
}

void Catalogs::remove(const Catalog& catalog, bool withTasks, bool mayDeleteTasks, const std::string& username,
                      std::int64_t now) {
    if (m_store.subtreeHoldsTasks(catalog.deptId, catalog.id)) {
        if (!withTasks)
            throw Refusal(reasons::HoldsTasks);
        if (!mayDeleteTasks)
            throw Refusal(reasons::NoRightDelete);
    }
    LogEntry entry;
    entry.id = newId();
    entry.deptId = catalog.deptId;
    entry.username = username;
    entry.time = now;
    entry.kind = LogEntry::Deleted;
    m_store.removeCatalog(catalog, entry);
}

void clearRemoved(IStore& store, const GoOn& goOn) {
    while (store.isAnyGoing()) {
        changing(store, [&] { store.clearRemoved(ClearedAtOnce); });
        if (!goOn())
            return;
    }
}

}  // namespace disclosure
