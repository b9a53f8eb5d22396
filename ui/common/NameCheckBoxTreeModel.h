#pragma once

#include <QVector>

#include "ui/common/NameRecord.h"
#include "ui/common/SelectionTreeModel.h"

/// A tree of named items that can be checked, built unchecked from a flat list.
class NameCheckBoxTreeModel : public SelectionTreeModel {
    Q_OBJECT

public:
    explicit NameCheckBoxTreeModel(QObject* parent = nullptr);

    /// Replaces the tree by the one below the first record without a parent; what that does not reach is left out. No
    /// such record: the tree stays as it is.
    void build(const QVector<NameRecord>& records);
};
