#pragma once

#include <QVector>

#include "ui/common/FlatTree.h"
#include "ui/common/NameRecord.h"
#include "ui/common/TreeModel.h"

/// Replaces the model's tree by the one below the first record without a parent; without such a record it stays.
template <class Node>
void BuildNameTree(TreeModel& model, const QVector<NameRecord>& records) {
    const auto idOf = [](const NameRecord& record) { return record.id; };
    const auto parentOf = [](const NameRecord& record) { return record.parentId; };
    Node* root =
        CreateFlatTree<Node>(FlatTreeOrder(records, idOf, parentOf, Strays::Skip), [&](int index, Node* parent) {
            const NameRecord& record = records[index];
            return new Node(parent, record.name, record.id, record.realName);
        });
    if (root)
        model.addNode({}, root);
}
