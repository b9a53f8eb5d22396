#include "service/domain/DocumentFolders.h"

#include "service/domain/Names.h"
#include "service/domain/NewId.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr NameReasons Why{reasons::FolderNameEmpty, reasons::FolderNameTooLong, reasons::FolderNameForbidden};

std::string orTop(const std::string& parentId) {
    return parentId.empty() ? TopFolder : parentId;
}

}  // namespace

std::string DocumentFolders::existing(IDocumentStore& store, const std::string& deptId, const std::string& id) {
    if (orTop(id) != TopFolder && !store.folder(deptId, id))
        throw Refusal(reasons::NoFolder);
    return orTop(id);
}

std::int32_t DocumentFolders::depthIn(const std::string& deptId, const std::string& parentId) {
    return parentId == TopFolder ? 1 : m_store.folder(deptId, parentId)->depth + 1;
}

void DocumentFolders::save(const std::string& deptId, std::string id, const std::string& name,
                           const std::string& parentId) {
    DocumentFolder added;
    added.deptId = deptId;
    added.name = checkedName(name, Why);
    added.parentId = orTop(parentId);
    if (id.empty()) {
        id = newId();
    } else if (!isId(id) || id == TopFolder) {
        throw Refusal(reasons::BadFolderId);
    } else if (const auto known = m_store.folder(deptId, id)) {
        if (known->parentId == added.parentId && known->name == added.name)
            return;
        throw Refusal(reasons::FolderIdTaken);
    }
    added.id = id;
    existing(m_store, deptId, added.parentId);
    added.depth = depthIn(deptId, added.parentId);
    if (added.depth > DeepestLevel)
        throw Refusal(reasons::FoldersTooDeep);
    if (m_store.hasFolderNamed(deptId, added.parentId, added.name))
        throw Refusal(reasons::FolderNameTaken);
    if (m_store.folderCount(deptId) >= MostFolders)
        throw Refusal(reasons::TooManyFolders);
    m_store.addFolder(added);
}

void DocumentFolders::update(const std::string& deptId, const std::string& id, const std::optional<std::string>& name,
                             const std::optional<std::string>& parentId, const Rights& rights) {
    const auto known = m_store.folder(deptId, id);
    if (!known)
        throw Refusal(reasons::NoFolder);
    DocumentFolder folder = *known;
    if (name)
        folder.name = checkedName(*name, Why);
    if (parentId)
        folder.parentId = existing(m_store, deptId, *parentId);
    const bool moves = folder.parentId != known->parentId;
    if (moves && !rights.contains(Right::DeleteTasks))
        throw Refusal(reasons::NoRightMoveDocuments);
    if (!moves && folder.name == known->name)
        return;
    if (moves) {
        if (m_store.isFolderWithin(deptId, folder.parentId, id))
            throw Refusal(reasons::FolderWithinItself);
        folder.depth = depthIn(deptId, folder.parentId);
        if (folder.depth + m_store.levelsBelow(deptId, id) > DeepestLevel)
            throw Refusal(reasons::FoldersTooDeep);
    }
    if (m_store.hasFolderNamed(deptId, folder.parentId, folder.name))
        throw Refusal(reasons::FolderNameTaken);
    m_store.putFolder(folder);
}

void DocumentFolders::remove(const std::string& deptId, const std::string& id) {
    if (!m_store.folder(deptId, id))
        throw Refusal(reasons::NoFolder);
    if (m_store.isFolderUsed(deptId, id))
        throw Refusal(reasons::FolderNotEmpty);
    m_store.removeFolder(deptId, id);
}

}  // namespace disclosure
