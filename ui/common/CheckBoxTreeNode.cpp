#include "ui/common/CheckBoxTreeNode.h"

#include <QVector>

namespace {

CheckBoxTreeNode* AsCheckBox(TreeNode* node) {
    Q_ASSERT(qobject_cast<CheckBoxTreeNode*>(node));
    return static_cast<CheckBoxTreeNode*>(node);
}

/// Calls `visit` for everything below `top` in pre-order, without recursion: trees may be deep.
template <class Visit>
void VisitDescendants(TreeNode* top, Visit visit) {
    struct Level {
        const QList<TreeNode*>* nodes;
        int next;
    };
    QVector<Level> levels{{&top->children(), 0}};
    while (!levels.isEmpty()) {
        Level& level = levels.last();
        if (level.next == level.nodes->size()) {
            levels.removeLast();
            continue;
        }
        TreeNode* node = level.nodes->at(level.next++);
        visit(AsCheckBox(node));
        if (!node->children().isEmpty())
            levels.append({&node->children(), 0});
    }
}

Qt::CheckState StateOfChildren(const TreeNode* node) {
    const Qt::CheckState first = AsCheckBox(node->children().first())->checkState();
    for (TreeNode* child : node->children())
        if (AsCheckBox(child)->checkState() != first)
            return Qt::PartiallyChecked;
    return first;
}

}  // namespace

CheckBoxTreeNode::CheckBoxTreeNode(TreeNode* parentNode) : TreeNode(parentNode) {}

void CheckBoxTreeNode::setCheckState(Qt::CheckState state) {
    if (state == m_checkState)
        return;
    if (state == Qt::PartiallyChecked)
        state = Qt::Checked;

    QList<CheckBoxTreeNode*> changed;
    m_checkState = state;
    emit checkStateChanged();
    updateAncestors(changed);
    updateDescendants(changed);
    changed.append(this);
    emit AsCheckBox(topLevelNode())->checkStateFinished(changed, state);
}

void CheckBoxTreeNode::updateAncestors(QList<CheckBoxTreeNode*>& changed) {
    for (TreeNode* node = this; node->parentNode() && node->parentNode()->parentNode(); node = node->parentNode()) {
        CheckBoxTreeNode* ancestor = AsCheckBox(node->parentNode());
        const Qt::CheckState state = StateOfChildren(ancestor);
        if (state != ancestor->m_checkState)
            changed.append(ancestor);
        ancestor->m_checkState = state;
        emit ancestor->checkStateChanged();
    }
}

void CheckBoxTreeNode::updateDescendants(QList<CheckBoxTreeNode*>& changed) {
    // The whole subtree ends in this node's state: what differs from its parent differs from it.
    const Qt::CheckState state = m_checkState;
    VisitDescendants(this, [&changed, state](CheckBoxTreeNode* node) {
        if (node->m_checkState == state)
            return;
        node->m_checkState = state;
        emit node->checkStateChanged();
        changed.append(node);
    });
}

void CheckBoxTreeNode::touchCheckState() {
    VisitDescendants(this, [](CheckBoxTreeNode* node) { emit node->checkStateChanged(); });
    emit checkStateChanged();
}
