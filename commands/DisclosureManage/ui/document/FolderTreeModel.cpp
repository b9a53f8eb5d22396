#include "commands/DisclosureManage/ui/document/FolderTreeModel.h"

#include <string_view>

#include "ui/common/WideText.h"

using DOCUMENTPACKAGE::DocFolderRecord;

namespace {

constexpr std::size_t kMostOpen = 200;  // folders that are all open

}  // namespace

CFolderTreeModel::CFolderTreeModel(QObject* parent) : TreeModel(parent) {}

void CFolderTreeModel::setFolders(Folders folders) {
    m_folders = std::move(folders);
    m_places = FlatTreeOrder(
        m_folders, [](const DocFolderRecord& folder) { return std::wstring_view(folder.id); },
        [](const DocFolderRecord& folder) { return std::wstring_view(folder.parentId); }, Strays::UnderRoot);
    build();
}

void CFolderTreeModel::search(const QString& key) {
    m_key = key.trimmed();
    build();
}

void CFolderTreeModel::build() {
    const auto folderAt = [this](int record) -> const DocFolderRecord& {
        return m_folders[static_cast<std::size_t>(record)];
    };
    std::vector<char> shown;
    if (!m_key.isEmpty())
        shown = FoundPlaces(m_places, [&](const FlatTreePlace& place) {
            return FromWide(folderAt(place.record).name).contains(m_key, Qt::CaseInsensitive);
        });
    auto* top = CreateFlatTree<CFolderTreeNode>(
        m_places,
        [&](int record, CFolderTreeNode* parent) {
            const DocFolderRecord& folder = folderAt(record);
            return new CFolderTreeNode(parent, FromWide(folder.name), FromWide(folder.id));
        },
        shown);
    if (top)
        addNode({}, top);
    else
        clear();
}

bool CFolderTreeModel::opensAll() const {
    return m_folders.size() <= kMostOpen || !m_key.isEmpty();
}

const CFolderTreeNode* CFolderTreeModel::folderOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<const CFolderTreeNode*>(nodeOf(index)) : nullptr;
}

QModelIndex CFolderTreeModel::indexOfFolder(const QString& id) const {
    QList<TreeNode*> pending = nodeOf({})->children();
    while (!pending.isEmpty()) {
        const TreeNode* node = pending.takeLast();
        if (static_cast<const CFolderTreeNode*>(node)->folderId() == id)
            return indexOf(node);
        pending += node->children();
    }
    return {};
}
