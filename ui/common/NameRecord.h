#pragma once

#include <QString>

/// One entry of a flat list that a tree of names is built from.
struct NameRecord {
    QString name;
    QString id;
    QString parentId;  // empty for the root
    QString realName;
};
