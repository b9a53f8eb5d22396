#pragma once

#include "ui/common/TreeNode.h"

/// A tree node with a tri-state check box. Everything below such a node is a `CheckBoxTreeNode` too, and so is
/// everything above it but the invisible root.
class CheckBoxTreeNode : public TreeNode {
    Q_OBJECT
    Q_PROPERTY(Qt::CheckState checkState READ checkState WRITE setCheckState NOTIFY checkStateChanged)

public:
    explicit CheckBoxTreeNode(TreeNode* parentNode = nullptr);

    Qt::CheckState checkState() const { return m_checkState; }
    /// The user's choice: passed on to ancestors and descendants. The partial state counts as checked.
    void setCheckState(Qt::CheckState state);
    /// Stores a state without telling anybody; `touchCheckState` tells afterwards.
    void storeCheckState(Qt::CheckState state) { m_checkState = state; }
    /// Emits `checkStateChanged` on every descendant and then on the node itself, so that QML reads the states again.
    Q_INVOKABLE void touchCheckState();

signals:
    void checkStateChanged();
    /// Emitted on the top-level ancestor: `node` lists every node that the choice changed, the nearest ancestor first,
    /// then descendants in pre-order, then the node that was chosen.
    void checkStateFinished(QList<CheckBoxTreeNode*> node, Qt::CheckState userCheckState);

private:
    void updateAncestors(QList<CheckBoxTreeNode*>& changed);
    void updateDescendants(QList<CheckBoxTreeNode*>& changed);

    Qt::CheckState m_checkState = Qt::Unchecked;
};
