#include "ui/common/SelectionTreeModel.h"

SelectionTreeModel::SelectionTreeModel(QObject* parent) : TreeModel(parent) {
    connect(this, &QAbstractItemModel::rowsRemoved, this, &SelectionTreeModel::noticeLoss);
    connect(this, &QAbstractItemModel::modelReset, this, &SelectionTreeModel::noticeLoss);
}

void SelectionTreeModel::setCurrentIndex(const QModelIndex& index) {
    if (m_currentIndex == index)
        return;
    m_currentIndex = index;
    m_hasCurrent = index.isValid();
    emit currentIndexChanged();
}

void SelectionTreeModel::noticeLoss() {
    if (!m_hasCurrent || m_currentIndex.isValid())
        return;
    m_hasCurrent = false;
    emit currentIndexChanged();
}
