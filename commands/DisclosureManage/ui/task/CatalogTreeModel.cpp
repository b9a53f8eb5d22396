#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"

#include <utility>

#include <QQmlEngine>

using DISCLOSUREPACKAGE::CatalogRecord;

CatalogTreeModel::CatalogTreeModel(QObject* parent) : SelectionTreeModel(parent) {
    connect(this, &SelectionTreeModel::currentIndexChanged, this, &CatalogTreeModel::followSelection);
}

void CatalogTreeModel::setCatalogs(const std::vector<CatalogRecord>& catalogs) {
    emit replacingCatalogs();
    const CatalogTreeNode* current = GetCurrentNode();
    const QString selected = current ? current->id() : QString();
    m_isReplacing = true;  // the selection goes and comes back, which is nobody's choice
    replaceTree(CatalogTreeNode::createTree(catalogs));
    setCurrentIndex(indexOfCatalog(selected));
    m_isReplacing = false;
    followSelection();
    emit defaultIndexChanged();
    emit catalogsReplaced();
}

void CatalogTreeModel::replaceTree(CatalogTreeNode* top) {
    if (top)
        addNode({}, top);
    else
        clear();
    m_defaultIndex = index(0, 0);
}

void CatalogTreeModel::setChoices(const std::vector<CatalogRecord>& catalogs, const QString& search) {
    replaceTree(CatalogTreeNode::createChoices(catalogs, search));
    emit defaultIndexChanged();
}

QString CatalogTreeModel::catalogId(const QModelIndex& index) const {
    return index.isValid() ? static_cast<const CatalogTreeNode*>(nodeOf(index))->id() : QString();
}

QModelIndex CatalogTreeModel::indexOfCatalog(const QString& id) const {
    return id.isEmpty() ? QModelIndex() : indexOf(findCatalog(id));
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

void CatalogTreeModel::setFailure(const QString& why) {
    m_failure = why;
    emit failureChanged();
}

void CatalogTreeModel::followSelection() {
    if (m_isReplacing)
        return;
    setNewBuildEnable(currentIndex().isValid() && m_nodeOperEnable);
    tellCatalog();
}

void CatalogTreeModel::tellCatalog() {
    const CatalogTreeNode* node = GetCurrentNode();
    const QString id = node ? node->id() : QString();
    if (std::exchange(m_toldCatalog, id) != id)
        emit currentCatalogChanged(id);
}

QString CatalogTreeModel::pathOf(const QString& id) const {
    QStringList names;
    const TreeNode* node = findCatalog(id);
    for (; node && !node->isTopLevel(); node = node->parentNode())
        names.prepend(static_cast<const CatalogTreeNode*>(node)->nodeName());
    return names.join(tr(" / "));
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
