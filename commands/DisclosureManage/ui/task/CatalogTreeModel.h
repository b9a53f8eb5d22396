#pragma once

#include <vector>

#include "commands/DisclosureManage/ui/ReadState.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeNode.h"
#include "ui/common/SelectionTreeModel.h"

/// The tree of catalogs, with what the user may do to it.
class CatalogTreeModel : public SelectionTreeModel {
    Q_OBJECT
    Q_PROPERTY(bool is_duplicate_name READ duplicateStatus NOTIFY duplicateStatusChanged)
    Q_PROPERTY(QModelIndex defaultIndex READ defaultIndex NOTIFY defaultIndexChanged)
    Q_PROPERTY(bool nodeOperEnable READ nodeOperEnable NOTIFY nodeOperEnableChanged)
    Q_PROPERTY(bool newBuildEnable READ newBuildEnable NOTIFY newBuildEnableChanged)
    Q_PROPERTY(ReadState* reading READ reading CONSTANT)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)

public:
    explicit CatalogTreeModel(QObject* parent = nullptr);

    /// Replaces the tree by that of `catalogs`. The top catalog becomes the default; what was selected is so again
    /// where it still stands.
    void setCatalogs(const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs);
    /// The same without what the top does not reach, and only the catalogs whose names contain `search`, whatever its
    /// case, with those on the way to them. Nothing is selected.
    void setChoices(const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs, const QString& search);

    /// The selected catalog; null without one. Owned by the model. QML can call it once the node's type is registered.
    Q_INVOKABLE CatalogTreeNode* GetCurrentNode() const;
    /// Null when there is none of that id.
    CatalogTreeNode* findCatalog(const QString& id) const;
    /// Empty for an invalid index.
    Q_INVOKABLE QString catalogId(const QModelIndex& index) const;
    /// Invalid when there is none of that id.
    Q_INVOKABLE QModelIndex indexOfCatalog(const QString& id) const;
    /// Opens the catalog and everything above it.
    void expandTo(const QModelIndex& catalog);
    /// The catalog that is selected when the tree is first shown.
    QModelIndex defaultIndex() const { return m_defaultIndex; }

    /// Whether the service accepted the last create or rename (it goes by this name in QML: "is_duplicate_name").
    bool duplicateStatus() const { return m_duplicateStatus; }
    void setDuplicateStatus(bool accepted);
    /// The user's right to edit the tasks of others.
    bool editAuth() const { return m_editAuth; }
    void setEditAuth(bool granted);
    /// The user's right to create, rename, delete and move catalogs.
    bool nodeOperEnable() const { return m_nodeOperEnable; }
    void setNodeOperEnable(bool granted);
    /// Whether a catalog may be created; follows `nodeOperEnable` and the selection with every change of the latter.
    bool newBuildEnable() const { return m_newBuildEnable; }
    void setNewBuildEnable(bool granted);
    /// The user's right to delete the tasks of others.
    bool delBtnEnable() const { return m_delBtnEnable; }
    void setDelBtnEnable(bool granted);
    ReadState* reading() { return &m_reading; }
    /// Why the last create or rename failed, where nobody else has told the user; empty otherwise.
    const QString& failure() const { return m_failure; }
    void setFailure(const QString& why);
    /// The names from below the top catalog down to this one; empty for the top and where it is not known.
    QString pathOf(const QString& id) const;

public slots:
    /// `nCount` tasks came to (or, below zero, left) the catalog; an empty id means the selected one.
    void updateCatalogTaskCount(int nCount, const QString& sCatalogID);

signals:
    /// Empty when no catalog is selected any more.
    void currentCatalogChanged(const QString& id);
    void defaultIndexChanged();
    void nodeOperEnableChanged(bool granted);
    void duplicateStatusChanged();
    void editAuthChanged(bool granted);
    void DelBtnEnableChanged(bool granted);
    void newBuildEnableChanged();
    void failureChanged();
    /// Another tree of the same catalogs is about to take this one's place; `catalogsReplaced` follows.
    void replacingCatalogs();
    void catalogsReplaced();

private:
    void followSelection();
    void tellCatalog();
    void replaceTree(CatalogTreeNode* top);

    QPersistentModelIndex m_defaultIndex;
    QString m_toldCatalog;  // by currentCatalogChanged
    bool m_isReplacing = false;
    ReadState m_reading;
    QString m_failure;
    bool m_duplicateStatus = false;
    bool m_editAuth = false;
    bool m_nodeOperEnable = false;
    bool m_newBuildEnable = false;
    bool m_delBtnEnable = false;
};
