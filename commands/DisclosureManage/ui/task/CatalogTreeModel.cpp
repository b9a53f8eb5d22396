#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"

#include <QQmlEngine>

CatalogTreeModel::CatalogTreeModel(QObject* parent) : SelectionTreeModel(parent) {
    connect(this, &SelectionTreeModel::currentIndexChanged, this, &CatalogTreeModel::followSelection);
}

void CatalogTreeModel::setCatalogs(const std::vector<DISCLOSUREPACKAGE::CatalogRecord>& catalogs) {
    if (CatalogTreeNode* top = CatalogTreeNode::createTree(catalogs))
        addNode({}, top);
    else
        clear();
    m_defaultIndex = index(0, 0);
    emit defaultIndexChanged();
}

CatalogTreeNode* CatalogTreeModel::GetCurrentNode() const {
    if (!currentIndex().isValid())
        return nullptr;
    auto* node = static_cast<CatalogTreeNode*>(nodeOf(currentIndex()));
    // QML takes over what a call hands it, unless told otherwise.
    QQmlEngine::setObjectOwnership(node, QQmlEngine::CppOwnership);
    return node;
}

void CatalogTreeModel::setDuplicateStatus(bool accepted) {
    if (accepted == m_duplicateStatus)
        return;
    m_duplicateStatus = accepted;
    emit duplicateStatusChanged();
}

void CatalogTreeModel::setEditAuth(bool granted) {
    if (granted == m_editAuth)
        return;
    m_editAuth = granted;
    emit editAuthChanged(granted);
}

void CatalogTreeModel::setNodeOperEnable(bool granted) {
    if (granted == m_nodeOperEnable)
        return;
    m_nodeOperEnable = granted;
    emit nodeOperEnableChanged(granted);
}

void CatalogTreeModel::setNewBuildEnable(bool granted) {
    m_newBuildEnable = granted;
    emit newBuildEnableChanged();
}

void CatalogTreeModel::setDelBtnEnable(bool granted) {
    if (granted == m_delBtnEnable)
        return;
    m_delBtnEnable = granted;
    emit DelBtnEnableChanged(granted);
}

void CatalogTreeModel::followSelection() {
    setNewBuildEnable(currentIndex().isValid() && m_nodeOperEnable);
    const CatalogTreeNode* node = GetCurrentNode();
    emit currentCatalogChanged(node ? node->id() : QString());
}

void CatalogTreeModel::updateCatalogTaskCount(int nCount, const QString& sCatalogID) {
    if (CatalogTreeNode* node = sCatalogID.isEmpty() ? GetCurrentNode() : findCatalog(sCatalogID))
        node->changeOwnCount(nCount);
}

void CatalogTreeModel::expandTo(const QModelIndex& catalog) {
    QModelIndexList path;
    for (QModelIndex index = catalog; index.isValid(); index = index.parent())
        path.prepend(index);
    for (const QModelIndex& index : path)  // from the top: views open only what they show
        expand(index);
}

CatalogTreeNode* CatalogTreeModel::findCatalog(const QString& id) const {
    QList<TreeNode*> pending = nodeOf({})->children();
    while (!pending.isEmpty()) {
        auto* node = static_cast<CatalogTreeNode*>(pending.takeLast());
        if (node->id() == id)
            return node;
        pending.append(node->children());
    }
    return nullptr;
}
