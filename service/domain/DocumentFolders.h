#pragma once

#include <optional>
#include <string>

#include "service/ports/IStore.h"
#include "service/ports/Rights.h"

namespace disclosure {

/// The rules of the folders of documents. Every operation expects to run within one transaction of its caller, who has
/// made sure that the person may see the department and holds the right; a broken rule throws `Refusal`.
class DocumentFolders {
public:
    static constexpr std::int32_t DeepestLevel = 32;
    static constexpr std::int64_t MostFolders = 10'000;  // of a department

    explicit DocumentFolders(IStore& store) : m_store(store) {}

    /// An empty id is given one; an empty parent is the top. Saying the same again changes nothing and is no error.
    void save(const std::string& deptId, std::string id, const std::string& name, const std::string& parentId);
    /// Gives it another name, or another parent, which takes the right to delete; what is absent stays.
    void update(const std::string& deptId, const std::string& id, const std::optional<std::string>& name,
                const std::optional<std::string>& parentId, const Rights& rights);
    void remove(const std::string& deptId, const std::string& id);

    /// The folder, which may be the top. Throws when there is none.
    static std::string existing(IDocumentStore& store, const std::string& deptId, const std::string& id);

private:
    /// The depth of a folder in this one.
    std::int32_t depthIn(const std::string& deptId, const std::string& parentId);

    IStore& m_store;
};

}  // namespace disclosure
