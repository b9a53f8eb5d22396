#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

/// What happens to records that the root does not reach: orphans, further records without a parent, cycles.
enum class Strays { Skip, UnderRoot };

/// A place in a tree: which record stands there, and under which earlier place (-1 for the root).
struct FlatTreePlace {
    int record;
    int parent;
};

namespace flattree {

/// The children of each record as chains through index arrays, -1 ending a chain.
struct Links {
    explicit Links(int count) : first(count, -1), last(count, -1), next(count, -1) {}
    void append(int parent, int child) {
        (first[parent] < 0 ? first[parent] : next[last[parent]]) = child;
        last[parent] = child;
    }
    std::vector<int> first, last, next;
};

/// Finds records by id. One flat table of record numbers: half of the time goes into this look-up, and a table of
/// separate entries doubles it.
template <class Records, class IdOf>
class Index {
public:
    using Key = std::decay_t<std::invoke_result_t<IdOf, decltype(*std::declval<const Records&>().begin())>>;

    Index(const Records& records, IdOf idOf) : m_records(records), m_idOf(idOf) {
        size_t size = 16;
        while (size < 2 * static_cast<size_t>(records.size()))
            size *= 2;
        m_slots.assign(size, {0, -1});
    }
    static uint32_t hashOf(const Key& id) { return static_cast<uint32_t>(std::hash<Key>()(id)); }
    /// False when the id is known already. `hash` is the id's.
    bool insert(int record, uint32_t hash) {
        Slot& slot = find(m_idOf(m_records[record]), hash);
        if (slot.record >= 0)
            return false;
        slot = {hash, record};
        return true;
    }
    /// -1 when no record has this id.
    int operator[](const Key& id) { return find(id, hashOf(id)).record; }

private:
    struct Slot {
        uint32_t hash;
        int32_t record;
    };
    /// The slot of `id`, or the free one that is its place.
    Slot& find(const Key& id, uint32_t hash) {
        size_t at = hash & (m_slots.size() - 1);
        while (m_slots[at].record >= 0 && (m_slots[at].hash != hash || m_idOf(m_records[m_slots[at].record]) != id))
            at = (at + 1) & (m_slots.size() - 1);
        return m_slots[at];
    }

    const Records& m_records;
    IdOf m_idOf;
    std::vector<Slot> m_slots;
};

}  // namespace flattree

/// Turns a flat list of records into the places of a tree, parents first and siblings in the list's order; linear in
/// the number of records. `idOf` and `parentOf` give a record's id and its parent's id as a text that the record keeps
/// alive. The root is the first record without a parent; empty without one. Of several records of one id the root
/// stays, otherwise the first; the others and those without an id are left out, so that no list, however wrong, makes a
/// cycle.
template <class Records, class IdOf, class ParentOf>
std::vector<FlatTreePlace> FlatTreeOrder(const Records& records, IdOf idOf, ParentOf parentOf, Strays strays) {
    using Index = flattree::Index<Records, IdOf>;
    using Key = typename Index::Key;
    const int count = static_cast<int>(records.size());

    // Each text is read once, in the list's order, and the table is filled afterwards: long lists are bound by memory.
    int root = -1;
    std::vector<uint32_t> hashes(count);
    std::vector<char> usable(count);
    std::vector<char> sameParent(count);  // as the record before
    for (int i = 0; i < count; ++i) {
        const Key id = idOf(records[i]);
        const Key parentId = parentOf(records[i]);
        hashes[i] = Index::hashOf(id);
        usable[i] = id != Key();
        sameParent[i] = i > 0 && parentId == parentOf(records[i - 1]);
        if (root < 0 && parentId == Key())
            root = i;
    }
    Index index(records, idOf);
    std::vector<FlatTreePlace> places;
    if (root < 0)
        return places;
    // The root first: an earlier record of its id would take its children with it out of the tree.
    index.insert(root, hashes[root]);
    for (int i = 0; i < count; ++i)
        usable[i] = (usable[i] && index.insert(i, hashes[i])) || i == root;

    flattree::Links links(count);
    std::vector<int> orphans;
    int parent = -1;
    for (int i = 0; i < count; ++i) {
        if (!sameParent[i]) {
            const Key parentId = parentOf(records[i]);
            parent = parentId == Key() ? -1 : index[parentId];
        }
        if (!usable[i] || i == root)
            continue;
        if (parent < 0)
            orphans.push_back(i);
        else
            links.append(parent, i);
    }

    places.reserve(records.size());
    const auto place = [&](int record, int under) {
        if (!usable[record])
            return;
        usable[record] = 0;
        places.push_back({record, under});
    };
    const auto placeSubtree = [&](int record, int under) {
        size_t next = places.size();
        place(record, under);
        for (; next < places.size(); ++next)
            for (int child = links.first[places[next].record]; child >= 0; child = links.next[child])
                place(child, static_cast<int>(next));
    };
    placeSubtree(root, -1);
    if (strays == Strays::UnderRoot) {
        for (const int orphan : orphans)
            placeSubtree(orphan, 0);
        for (int i = 0; i < count; ++i)  // what is left goes in circles; its first record opens the circle
            placeSubtree(i, 0);
    }
    return places;
}

/// Creates the nodes of `places`: `create(record index, parent node or null)`. Where `shown` has marks, as
/// `FoundPlaces` gives them, only of those that are marked. Returns the root; null without any.
template <class Node, class Create>
Node* CreateFlatTree(const std::vector<FlatTreePlace>& places, Create create, const std::vector<char>& shown = {}) {
    std::vector<Node*> nodes(places.size(), nullptr);
    for (size_t i = 0; i < places.size(); ++i)
        if (shown.empty() || shown[i])
            nodes[i] = create(places[i].record, places[i].parent < 0 ? nullptr : nodes[places[i].parent]);
    return nodes.empty() ? nullptr : nodes.front();
}

/// Marks the places that pass `isFound` and those above them.
template <class IsFound>
std::vector<char> FoundPlaces(const std::vector<FlatTreePlace>& places, IsFound isFound) {
    std::vector<char> found(places.size(), 0);
    for (size_t i = places.size(); i-- > 0;) {  // parents come first, so that going back passes each mark on
        found[i] = found[i] || isFound(places[i]);
        if (found[i] && places[i].parent >= 0)
            found[static_cast<size_t>(places[i].parent)] = 1;
    }
    return found;
}
