#include "commands/DisclosureManage/ui/task/CatalogTreeNode.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include <QStringBuilder>

#include "ui/common/FlatTree.h"
#include "ui/common/WideText.h"

using DISCLOSUREPACKAGE::CatalogRecord;

namespace {

int CountOf(const CatalogRecord& catalog) {
    return std::max(0, catalog.taskNumber);
}

/// Leaves the places that are found and those above them, with their totals.
template <class IsFound>
void KeepFound(std::vector<FlatTreePlace>& places, std::vector<qint64>& totals, IsFound isFound) {
    const std::vector<char> kept = FoundPlaces(places, isFound);
    std::vector<int> newPlaces(places.size(), -1);
    size_t count = 0;
    for (size_t i = 0; i < places.size(); ++i) {
        if (!kept[i])
            continue;
        newPlaces[i] = static_cast<int>(count);
        places[count] = {places[i].record, places[i].parent < 0 ? -1 : newPlaces[places[i].parent]};
        totals[count++] = totals[i];
    }
    places.resize(count);
}

}  // namespace

CatalogTreeNode::CatalogTreeNode(const QString& name, const QString& id, const QString& parentId)
    : m_nodeName(name), m_id(id), m_parentId(parentId) {}

CatalogTreeNode::CatalogTreeNode(const CatalogRecord& catalog, CatalogTreeNode* parentCatalog, qint64 total)
    : TreeNode(parentCatalog),
      m_nodeName(FromWide(catalog.name)),
      m_id(FromWide(catalog.id)),
      m_parentId(parentCatalog ? parentCatalog->m_id : QString()),
      m_total(total),
      m_ownCount(CountOf(catalog)) {}

CatalogTreeNode::~CatalogTreeNode() {
    if (parentNode())
        parentNode()->takeChild(row());  // while there is a count to take off the ancestors
}

CatalogTreeNode* CatalogTreeNode::createTree(const std::vector<CatalogRecord>& catalogs) {
    return createTree(catalogs, Strays::UnderRoot, {});
}

CatalogTreeNode* CatalogTreeNode::createChoices(const std::vector<CatalogRecord>& catalogs, const QString& search) {
    return createTree(catalogs, Strays::Skip, search.trimmed());
}

CatalogTreeNode* CatalogTreeNode::createTree(const std::vector<CatalogRecord>& catalogs, Strays strays,
                                             const QString& search) {
    const auto idOf = [](const CatalogRecord& catalog) { return std::wstring_view(catalog.id); };
    const auto parentOf = [](const CatalogRecord& catalog) { return std::wstring_view(catalog.parentId); };
    std::vector<FlatTreePlace> places = FlatTreeOrder(catalogs, idOf, parentOf, strays);

    // From the last to the first, since parents stand before their children.
    std::vector<qint64> totals(places.size());
    for (size_t i = places.size(); i-- > 0;) {
        totals[i] += CountOf(catalogs[places[i].record]);
        if (i > 0)
            totals[places[i].parent] += totals[i];
    }
    if (!search.isEmpty())
        KeepFound(places, totals, [&](const FlatTreePlace& place) {
            return FromWide(catalogs[place.record].name).contains(search, Qt::CaseInsensitive);
        });
    auto total = totals.cbegin();
    return CreateFlatTree<CatalogTreeNode>(places, [&](int record, CatalogTreeNode* parentCatalog) {
        return new CatalogTreeNode(catalogs[record], parentCatalog, *total++);
    });
}

void CatalogTreeNode::setNodeName(const QString& name) {
    m_nodeName = name;
    emit nodeNameChanged();
    emit nodeDisNameChanged();
}

void CatalogTreeNode::setNodeReadOnly(bool readOnly) {
    if (readOnly == m_readOnly)
        return;
    m_readOnly = readOnly;
    emit nodeReadOnlyChanged();
}

QString CatalogTreeNode::nodeDisName() const {
    if (isTopLevel())
        return m_nodeName;
    return m_nodeName % QLatin1Char('(') % QString::number(m_total) % QLatin1Char(')');  // in one allocation
}

void CatalogTreeNode::changeOwnCount(int change) {
    const qint64 sum = qint64{m_ownCount} + change;
    if (change == 0 || sum < 0 || sum > std::numeric_limits<int>::max())
        return;
    m_ownCount = static_cast<int>(sum);
    changeTotal(change);
}

void CatalogTreeNode::childAdded(TreeNode* node) {
    changeTotal(static_cast<CatalogTreeNode*>(node)->m_total);
}

void CatalogTreeNode::childRemoved(TreeNode* node) {
    changeTotal(-static_cast<CatalogTreeNode*>(node)->m_total);
}

void CatalogTreeNode::changeTotal(qint64 change) {
    if (change == 0)
        return;
    for (TreeNode* node = this; node; node = node->parentNode()) {
        auto* catalog = qobject_cast<CatalogTreeNode*>(node);
        if (!catalog)
            return;  // the invisible root
        catalog->m_total += change;
        emit catalog->nodeDisNameChanged();
    }
}
