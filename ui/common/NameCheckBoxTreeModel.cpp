#include "ui/common/NameCheckBoxTreeModel.h"

#include "ui/common/NameCheckBoxTreeNode.h"
#include "ui/common/NameTree.h"

NameCheckBoxTreeModel::NameCheckBoxTreeModel(QObject* parent) : SelectionTreeModel(parent) {}

void NameCheckBoxTreeModel::build(const QVector<NameRecord>& records) {
    BuildNameTree<NameCheckBoxTreeNode>(*this, records);
}
