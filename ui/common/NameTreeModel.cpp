#include "ui/common/NameTreeModel.h"

#include "ui/common/NameTree.h"
#include "ui/common/NameTreeNode.h"

NameTreeModel::NameTreeModel(QObject* parent) : SelectionTreeModel(parent) {}

void NameTreeModel::build(const QVector<NameRecord>& records) {
    BuildNameTree<NameTreeNode>(*this, records);
}
