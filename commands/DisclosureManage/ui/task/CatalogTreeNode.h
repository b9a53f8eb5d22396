#pragma once

#include <vector>

#include <QString>

#include "sdk/packages/disclosure/Records.h"
#include "ui/common/FlatTree.h"
#include "ui/common/TreeNode.h"

/// A catalog in the tree. Keeps the sum of the tasks in it and below it, so that showing it costs nothing. Everything
/// below such a node is a `CatalogTreeNode` too.
class CatalogTreeNode : public TreeNode {
    Q_OBJECT
    Q_PROPERTY(QString nodeName READ nodeName WRITE setNodeName NOTIFY nodeNameChanged)
    Q_PROPERTY(bool nodeReadOnly READ nodeReadOnly WRITE setNodeReadOnly NOTIFY nodeReadOnlyChanged)
    Q_PROPERTY(QString nodeDisName READ nodeDisName NOTIFY nodeDisNameChanged)

public:
    /// A catalog without tasks, outside any tree.
    CatalogTreeNode(const QString& name, const QString& id, const QString& parentId);
    ~CatalogTreeNode() override;

    /// The tree of `catalogs` below the first one without a parent; catalogs that it does not reach hang directly under
    /// it, so that none is out of the user's reach. Null without such a catalog. The caller owns it.
    static CatalogTreeNode* createTree(const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs);

    /// The catalogs to choose one of: without what the top does not reach, and only those whose names contain `search`,
    /// whatever its case, with those above them. Their numbers count what is left out, too. Null when there is none.
    static CatalogTreeNode* createChoices(const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs,
                                          const QString& search);

    QString nodeName() const { return m_nodeName; }
    /// Tells QML to read the name again, also when it is the same.
    void setNodeName(const QString& name);
    QString id() const { return m_id; }
    /// Empty for the top catalog.
    QString parentId() const { return m_parentId; }
    bool nodeReadOnly() const { return m_readOnly; }
    void setNodeReadOnly(bool readOnly);
    /// What the tree shows: the bare name at the top, elsewhere with the number of tasks in and below the catalog.
    QString nodeDisName() const;
    /// Tasks directly in the catalog.
    int ownCount() const { return m_ownCount; }
    /// Tasks in the catalog and below it.
    qint64 total() const { return m_total; }
    /// Ignored when less than no task would be left.
    void changeOwnCount(int change);

signals:
    void nodeNameChanged();
    void nodeReadOnlyChanged();
    void nodeDisNameChanged();

protected:
    void childAdded(TreeNode* node) override;
    void childRemoved(TreeNode* node) override;

private:
    static CatalogTreeNode* createTree(const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs, Strays strays,
                                       const QString& search);
    CatalogTreeNode(const DISCLOSUREPACKAGE::CatalogRecord& catalog, CatalogTreeNode* parentCatalog, qint64 total);
    void changeTotal(qint64 change);

    QString m_nodeName;
    QString m_id;
    QString m_parentId;
    qint64 m_total = 0;  // the service's numbers may add up to more than an int holds
    int m_ownCount = 0;
    bool m_readOnly = false;
};
