#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "commands/DisclosureManage/ui/task/PeopleNames.h"
#include "ui/common/FlatTree.h"

/// The current department's people in their departments, as the people pickers show and search them. Departments
/// without anybody to show are left out, and somebody listed twice counts once.
class PeopleDirectory {
public:
    /// Empty; the people whose login names are in `leftOut` will not be shown.
    explicit PeopleDirectory(const QStringList& leftOut = {}) : m_leftOut(leftOut) {}

    /// Reads the organisation. False, and nothing changed, where a manager is missing or it cannot be read.
    bool read();

    /// Of everybody, those left out too.
    const PeopleNames& names() const { return m_names; }

    /// The tree of those whose display or login name contains `search`, whatever its case, or of all when it is empty;
    /// null when there is nobody. A person's node has the login name as its id, a department's has none.
    template <class Node>
    Node* createTree(const QString& search) const {
        const auto create = [this](int record, Node* parent) {
            const Entry& entry = m_entries[static_cast<std::size_t>(record)];
            return new Node(parent, entry.name, entry.isPerson ? entry.name : QString(), entry.realName);
        };
        return CreateFlatTree<Node>(m_places, create, placesFor(search));
    }

private:
    struct Entry {
        std::wstring id;  // of the tree; departments and people have separate ones
        std::wstring parentId;
        QString name;  // a department's name, a person's login name
        QString realName;
        QString searched;
        bool isPerson;
    };

    std::vector<char> placesFor(const QString& search) const;

    QStringList m_leftOut;
    PeopleNames m_names;
    std::vector<Entry> m_entries;
    std::vector<FlatTreePlace> m_places;
};
