#pragma once

#include <vector>

#include "sdk/packages/documents/IKpxDocFolderMgr.h"
#include "ui/common/FlatTree.h"
#include "ui/common/TreeModel.h"
#include "ui/common/TreeNode.h"

/// A folder of the document store.
class CFolderTreeNode : public TreeNode {
    Q_OBJECT
    Q_PROPERTY(QString nodeName READ nodeName CONSTANT)
    Q_PROPERTY(QString folderId READ folderId CONSTANT)

public:
    CFolderTreeNode(TreeNode* parentNode, const QString& name, const QString& id)
        : TreeNode(parentNode), m_name(name), m_id(id) {}

    const QString& nodeName() const { return m_name; }
    const QString& folderId() const { return m_id; }

private:
    const QString m_name;
    const QString m_id;
};

/// The folders of the document store, or those that were searched for.
class CFolderTreeModel : public TreeModel {
    Q_OBJECT

public:
    using Folders = std::vector<DOCUMENTPACKAGE::DocFolderRecord>;

    explicit CFolderTreeModel(QObject* parent = nullptr);

    /// Replaces the tree by the folders below the first one without a parent; what that does not reach hangs under it.
    /// The search stays.
    void setFolders(Folders folders);
    /// Leaves the folders whose names contain `key`, whatever its case, and those above them; all where it is blank.
    void search(const QString& key);
    /// Whether there are few enough to be shown open from the start, or they were searched for.
    Q_INVOKABLE bool opensAll() const;

    /// Null for an invalid index.
    const CFolderTreeNode* folderOf(const QModelIndex& index) const;
    /// Invalid when it is not shown.
    QModelIndex indexOfFolder(const QString& id) const;

private:
    void build();

    Folders m_folders;
    std::vector<FlatTreePlace> m_places;
    QString m_key;
};
