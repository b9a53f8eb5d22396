#pragma once

#include "ui/common/TreeModel.h"

/// A tree model that knows which of its nodes is the current one.
class SelectionTreeModel : public TreeModel {
    Q_OBJECT
    Q_PROPERTY(QModelIndex currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)

public:
    explicit SelectionTreeModel(QObject* parent = nullptr);

    /// Follows its node; invalid at first, and again when the node is removed or the tree replaced.
    QModelIndex currentIndex() const { return m_currentIndex; }
    void setCurrentIndex(const QModelIndex& index);

signals:
    void currentIndexChanged();

private:
    void noticeLoss();

    QPersistentModelIndex m_currentIndex;
    bool m_hasCurrent = false;
};
