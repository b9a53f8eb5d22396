#pragma once

#include <QList>
#include <QObject>

class TreeModel;

/// One row of a `TreeModel`: owns its children and knows its row without searching for it.
class TreeNode : public QObject {
    Q_OBJECT

public:
    /// Appends the node to the children of `parentNode`, which owns it from then on; without one the caller does.
    explicit TreeNode(TreeNode* parentNode = nullptr);
    /// Deletes everything below and leaves the parent's list.
    ~TreeNode() override;

    /// In display order.
    const QList<TreeNode*>& children() const { return m_children; }
    /// Null for the invisible root and for a node outside any tree.
    TreeNode* parentNode() const { return m_parent; }
    /// Position among the siblings; 0 without a parent.
    int row() const { return m_row; }
    static int columnCount() { return 1; }
    /// Whether the parent is an invisible root.
    bool isTopLevel() const { return m_parent && !m_parent->m_parent; }
    /// The highest ancestor below the invisible root; the node itself where there is none.
    TreeNode* topLevelNode();

    bool isExpanded() const { return m_expanded; }
    /// The model that holds the node tells its views.
    void setExpanded(bool expanded);

    // The three below tell no view: on a node that a model shows use the model's operations.

    /// Takes over `node`, which must be outside any tree.
    void insertChild(int row, TreeNode* node);
    /// Hands the child over to the caller.
    TreeNode* takeChild(int row);
    void moveChild(int from, int to);

protected:
    /// `node` and what is below it became, or ceased to be, a child of this node. Not called for a child that enrols
    /// itself while it is constructed: it has nothing to report yet.
    virtual void childAdded(TreeNode* node);
    virtual void childRemoved(TreeNode* node);

private:
    friend class TreeModel;

    void renumber(int from, int to);

    QList<TreeNode*> m_children;
    TreeNode* m_parent = nullptr;
    TreeModel* m_model = nullptr;  // set on the invisible root alone
    int m_row = 0;
    bool m_expanded = true;
};
