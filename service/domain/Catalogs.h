#pragma once

#include <string>

#include "service/ports/GoOn.h"
#include "service/ports/ICatalogStore.h"
#include "service/ports/IStore.h"
#include "service/ports/Records.h"

namespace disclosure {

/// The rules of a department's catalogs. Every operation expects to run within one transaction of its caller, who has
/// made sure that the person may see the department; a broken rule throws `Refusal`.
class Catalogs {
public:
    static constexpr std::int32_t DeepestLevel = 32;
    static constexpr std::int64_t MostCatalogs = 100'000;

    explicit Catalogs(ICatalogStore& store) : m_store(store) {}

    /// Adds the catalog as the last child of its parent; an empty id is given one. Saying the same again, as a client
    /// does that saw no answer, changes nothing and is no error.
    void save(const std::string& deptId, std::string id, const std::string& name, const std::string& parentId);
    void rename(const Catalog& catalog, const std::string& name);
    void move(const Catalog& catalog, ICatalogStore::Side side);
    /// Removes the subtree, and its tasks where `withTasks` says so and the person `mayDeleteTasks`. The log of the
    /// tasks says that `username` did it.
    void remove(const Catalog& catalog, bool withTasks, bool mayDeleteTasks, const std::string& username,
                std::int64_t now);

private:
    ICatalogStore& m_store;
};

/// Clears away what went with removed catalogs, in short transactions of its own.
void clearRemoved(IStore& store, const GoOn& goOn);

}  // namespace disclosure
