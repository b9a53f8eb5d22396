#include "ui/common/TreeModel.h"

#include <QQmlEngine>

#include "ui/common/TreeNode.h"

TreeModel::TreeModel(QObject* parent) : QAbstractItemModel(parent), m_root(new TreeNode) {
    m_root->m_model = this;
    m_root->setParent(this);
}

TreeModel::~TreeModel() {
    m_root->m_model = nullptr;
}

QHash<int, QByteArray> TreeModel::roleNames() const {
    return {{Qt::DisplayRole, QByteArrayLiteral("item")}};
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    QObject* node = nodeOf(index);
    QQmlEngine::setObjectOwnership(node, QQmlEngine::CppOwnership);
    return QVariant::fromValue(node);
}

bool TreeModel::setData(const QModelIndex&, const QVariant&, int) {
    return false;
}

QVariant TreeModel::headerData(int, Qt::Orientation, int) const {
    return {};
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    const TreeNode* node = nodeOf(parent);
    if (column != 0 || parent.column() > 0 || row < 0 || row >= node->children().size())
        return {};
    return createIndex(row, 0, node->children().at(row));
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
    return index.isValid() ? indexOf(nodeOf(index)->parentNode()) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : nodeOf(parent)->children().size();
}

int TreeModel::columnCount(const QModelIndex&) const {
    return TreeNode::columnCount();
}

TreeNode* TreeModel::nodeOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<TreeNode*>(index.internalPointer()) : m_root;
}

QModelIndex TreeModel::indexOf(const TreeNode* node) const {
    return node && node != m_root ? createIndex(node->row(), 0, const_cast<TreeNode*>(node)) : QModelIndex();
}

void TreeModel::expand(const QModelIndex& index) {
    setExpanded(index, true);
}

void TreeModel::collapse(const QModelIndex& index) {
    setExpanded(index, false);
}

bool TreeModel::isExpanded(const QModelIndex& index) const {
    return index.isValid() && nodeOf(index)->isExpanded();
}

void TreeModel::setExpanded(const QModelIndex& index, bool expanded) {
    if (!index.isValid())
        return;
    TreeNode* node = nodeOf(index);
    if (node->isExpanded() == expanded)
        reportExpanded(node);  // a view may have missed it
    else
        node->setExpanded(expanded);
}

void TreeModel::reportExpanded(const TreeNode* node) {
    const QModelIndex index = indexOf(node);
    if (!index.isValid())
        return;
    if (node->isExpanded())
        emit expanded(index);
    else
        emit collapsed(index);
}

void TreeModel::addNode(const QModelIndex& parentIndex, TreeNode* node) {
    if (parentIndex.isValid())
        appendNode(parentIndex, node);
    else
        replaceTree(node);
    emit layoutAboutToBeChanged();
    emit layoutChanged();
}

void TreeModel::clear() {
    replaceTree(nullptr);
    emit layoutAboutToBeChanged();
    emit layoutChanged();
}

void TreeModel::replaceTree(TreeNode* node) {
    beginResetModel();
    m_root->m_model = nullptr;
    m_root->deleteLater();
    m_root = new TreeNode;
    m_root->m_model = this;
    m_root->setParent(this);
    if (node)
        m_root->insertChild(0, node);
    endResetModel();
}

QModelIndex TreeModel::appendNode(const QModelIndex& parentIndex, TreeNode* node) {
    TreeNode* parentNode = nodeOf(parentIndex);
    const int row = parentNode->children().size();
    beginInsertRows(parentIndex, row, row);
    parentNode->insertChild(row, node);
    endInsertRows();
    return indexOf(node);
}

void TreeModel::removeNode(const QModelIndex& index) {
    if (!index.isValid())
        return;
    beginRemoveRows(index.parent(), index.row(), index.row());
    TreeNode* node = nodeOf(index.parent())->takeChild(index.row());
    endRemoveRows();
    node->deleteLater();
}

bool TreeModel::moveNode(const QModelIndex& index, int offset) {
    if (!index.isValid() || offset == 0)
        return false;
    const QModelIndex parentIndex = index.parent();
    const int from = index.row();
    const int to = from + offset;
    if (to < 0 || to >= rowCount(parentIndex))
        return false;
    // A row moved down goes in front of the row behind its new place.
    beginMoveRows(parentIndex, from, from, parentIndex, offset > 0 ? to + 1 : to);
    nodeOf(parentIndex)->moveChild(from, to);
    endMoveRows();
    return true;
}
