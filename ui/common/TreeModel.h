#pragma once

#include <QAbstractItemModel>

class TreeNode;

/// A tree of `TreeNode`s for QML: one column, one role "item" that is the node itself.
class TreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit TreeModel(QObject* parent = nullptr);
    ~TreeModel() override;

    QHash<int, QByteArray> roleNames() const override;
    /// The node stays the model's, also where QML calls this and would otherwise collect what it was given.
    QVariant data(const QModelIndex& index, int role) const override;
    /// Nodes are changed through themselves: does nothing and returns false.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    using QObject::parent;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;

    Q_INVOKABLE void expand(const QModelIndex& index);
    Q_INVOKABLE void collapse(const QModelIndex& index);
    /// False for an invalid index.
    Q_INVOKABLE bool isExpanded(const QModelIndex& index) const;

    /// The node of `index`; the invisible root for an invalid one. Owned by the model.
    TreeNode* nodeOf(const QModelIndex& index) const;
    /// Invalid for the invisible root and for null.
    QModelIndex indexOf(const TreeNode* node) const;

    /// Takes over `node` with what is below it: appended under a valid `parentIndex`, otherwise in place of the whole
    /// tree. The old tree is deleted from the event loop, since delegates may still be bound to it.
    void addNode(const QModelIndex& parentIndex, TreeNode* node);
    void clear();

    /// Takes over `node` as the last child under `parentIndex`.
    QModelIndex appendNode(const QModelIndex& parentIndex, TreeNode* node);
    /// Removes the node with what is below it; it is deleted from the event loop. Ignores an invalid index.
    void removeNode(const QModelIndex& index);
    /// Moves the node by `offset` places among its siblings; false, and nothing moved, when that leads beyond them.
    bool moveNode(const QModelIndex& index, int offset);

signals:
    void expanded(const QModelIndex& index);
    void collapsed(const QModelIndex& index);

private:
    friend class TreeNode;

    void replaceTree(TreeNode* node);
    void reportExpanded(const TreeNode* node);
    void setExpanded(const QModelIndex& index, bool expanded);

    TreeNode* m_root;
};
