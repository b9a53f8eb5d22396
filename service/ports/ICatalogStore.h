#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/Records.h"
#include "service/ports/TaskRecords.h"

namespace disclosure {

/// The catalogs of the departments. A parent id is empty for the top catalog.
class ICatalogStore {
public:
    enum class Side { Before, After };

    /// Every catalog of the department with its own tasks counted: parents before children, siblings in their order.
    virtual std::vector<Catalog> catalogs(const std::string& deptId) = 0;
    virtual std::optional<Catalog> catalog(const std::string& deptId, const std::string& id) = 0;
    /// The catalogs of this id in the departments that the person may see: none or one, several when departments
    /// that do not know of each other chose the same id.
    virtual std::vector<Catalog> catalogsOfMember(const std::string& username, const std::string& id) = 0;
    virtual std::optional<Catalog> childNamed(const std::string& deptId, const std::string& parentId,
                                              const std::string& name) = 0;
    virtual bool hasTopCatalog(const std::string& deptId) = 0;
    virtual std::optional<Catalog> neighbour(const Catalog& catalog, Side side) = 0;
    virtual std::int64_t catalogCount(const std::string& deptId) = 0;
    /// The place after the last child.
    virtual std::int32_t nextSort(const std::string& deptId, const std::string& parentId) = 0;
    virtual bool subtreeHoldsTasks(const std::string& deptId, const std::string& id) = 0;
    /// Whether a catalog of this id was removed and something of it is still to be cleared away.
    virtual bool isGoing(const std::string& deptId, const std::string& id) = 0;

    virtual void addCatalog(const Catalog& catalog) = 0;
    virtual void renameCatalog(const std::string& deptId, const std::string& id, const std::string& name) = 0;
    virtual void placeCatalog(const std::string& deptId, const std::string& id, std::int32_t sort) = 0;
    /// Removes the catalog with everything below it and the tasks in all of these: from now on nobody is given any of
    /// it. `entry` is noted for each of the tasks. Of very many the rows stay until `clearRemoved` takes them.
    virtual void removeCatalog(const Catalog& catalog, const LogEntry& entry) = 0;
    /// Whether rows of removed catalogs or their tasks are left.
    virtual bool isAnyGoing() = 0;
    /// Clears away some of them, at most so many.
    virtual void clearRemoved(std::int64_t most) = 0;

protected:
    ~ICatalogStore() = default;
};

}  // namespace disclosure
