#include "ui/common/TreeNode.h"

#include "ui/common/TreeModel.h"

TreeNode::TreeNode(TreeNode* parentNode) : m_parent(parentNode) {
    if (!m_parent)
        return;
    m_row = m_parent->m_children.size();
    m_parent->m_children.append(this);
}

TreeNode::~TreeNode() {
    if (m_parent)
        m_parent->takeChild(m_row);

    // Each node is emptied before it is deleted, so that a deep tree does not end in deep recursion.
    QList<TreeNode*> pending;
    pending.swap(m_children);
    while (!pending.isEmpty()) {
        TreeNode* node = pending.takeLast();
        pending.append(node->m_children);
        node->m_children.clear();
        node->m_parent = nullptr;
        delete node;
    }
}

TreeNode* TreeNode::topLevelNode() {
    TreeNode* node = this;
    while (node->m_parent && node->m_parent->m_parent)
        node = node->m_parent;
    return node;
}

void TreeNode::setExpanded(bool expanded) {
    if (expanded == m_expanded)
        return;
    m_expanded = expanded;

    const TreeNode* root = this;
    while (root->m_parent)
        root = root->m_parent;
    if (root->m_model)
        root->m_model->reportExpanded(this);
}

void TreeNode::insertChild(int row, TreeNode* node) {
    Q_ASSERT(!node->m_parent && node != this);
    m_children.insert(row, node);
    node->m_parent = this;
    renumber(row, m_children.size() - 1);
    childAdded(node);
}

TreeNode* TreeNode::takeChild(int row) {
    TreeNode* node = m_children.takeAt(row);
    node->m_parent = nullptr;
    node->m_row = 0;
    renumber(row, m_children.size() - 1);
    childRemoved(node);
    return node;
}

void TreeNode::moveChild(int from, int to) {
    m_children.move(from, to);
    renumber(qMin(from, to), qMax(from, to));
}

void TreeNode::childAdded(TreeNode*) {}

void TreeNode::childRemoved(TreeNode*) {}

void TreeNode::renumber(int from, int to) {
    for (int row = from; row <= to; ++row)
        m_children.at(row)->m_row = row;
}
