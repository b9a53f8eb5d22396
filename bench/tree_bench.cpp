#if defined(__linux__)
#include <malloc.h>
#endif

#include <string_view>
#include <unordered_map>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QStandardItemModel>

#include "bench/Report.h"
#include "commands/DisclosureManage/ui/document/FolderTreeModel.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "ui/common/FlatTree.h"
#include "ui/common/NameCheckBoxTreeModel.h"
#include "ui/common/NameCheckBoxTreeNode.h"

using DISCLOSUREPACKAGE::CatalogRecord;

namespace {

constexpr int kNodes = 100000;
constexpr int kFolders = 5000;

/// As the service lists them: ids are UUIDs, parents come first. `fanOut` children each.
std::vector<CatalogRecord> Catalogs(int count, int fanOut) {
    std::vector<CatalogRecord> catalogs;
    catalogs.reserve(count);
    const auto id = [](int number) {
        std::wstring digits = std::to_wstring(number);
        return L"3f2b6c1e-9a4d-4e57-8b10-" + std::wstring(12 - digits.size(), L'0') + digits;
    };
    for (int i = 0; i < count; ++i)
        catalogs.push_back({id(i), L"第" + std::to_wstring(i) + L"分部分项工程", i ? id((i - 1) / fanOut) : L"", 1, i});
    return catalogs;
}

/// What a view reads of every row. `textOf` turns what the model answers into what is shown.
template <class TextOf>
qint64 Walk(const QAbstractItemModel& model, const QModelIndex& parent, TextOf textOf) {
    qint64 sum = 0;
    const int rows = model.rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        sum += textOf(model.data(index, Qt::DisplayRole)).size() + (model.parent(index) == parent);
        sum += Walk(model, index, textOf);
    }
    return sum;
}

QString TextOfNode(const QVariant& value) {
    return static_cast<CatalogTreeNode*>(value.value<QObject*>())->nodeDisName();
}

double BuildAndWalk(const std::vector<CatalogRecord>& catalogs, qint64& sum) {
    CatalogTreeModel model;
    QElapsedTimer timer;
    timer.start();
    model.setCatalogs(catalogs);
    sum = Walk(model, {}, TextOfNode);
    const double seconds = timer.nsecsElapsed() * 1e-9;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return seconds;
}

/// `textOf` gives what is shown of the record of that number.
template <class Records, class TextOf>
double BuildAndWalkPeer(const Records& records, TextOf textOf, qint64& sum) {
    QStandardItemModel model;
    QElapsedTimer timer;
    timer.start();
    QHash<QString, QStandardItem*> items;
    items.reserve(static_cast<int>(records.size()));
    for (size_t i = 0; i < records.size(); ++i) {
        auto* item = new QStandardItem(textOf(i));
        items.insert(QString::fromStdWString(records[i].id), item);
        QStandardItem* parent = items.value(QString::fromStdWString(records[i].parentId), model.invisibleRootItem());
        parent->appendRow(item);
    }
    sum = Walk(model, {}, [](const QVariant& value) { return value.toString(); });
    return timer.nsecsElapsed() * 1e-9;
}

/// The picker's folders as its manager hands them over.
void CompareFolders() {
    CFolderTreeModel::Folders folders;
    for (const CatalogRecord& catalog : Catalogs(kFolders, 10))
        folders.push_back({catalog.id, catalog.parentId, catalog.name});
    qint64 ours = 0;
    qint64 peers = 0;
    bench::Row(
        "picker's folder tree of 5,000 folders, built and walked / QStandardItemModel", 0.8,
        [&] {
            CFolderTreeModel::Folders handed = folders;
            CFolderTreeModel model;
            QElapsedTimer timer;
            timer.start();
            model.setFolders(std::move(handed));
            ours = Walk(model, {}, [](const QVariant& value) {
                return static_cast<CFolderTreeNode*>(value.value<QObject*>())->nodeName();
            });
            const double seconds = timer.nsecsElapsed() * 1e-9;
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return seconds;
        },
        [&] {
            return BuildAndWalkPeer(
                folders, [&](size_t i) { return QString::fromStdWString(folders[i].name); }, peers);
        });
    if (ours != peers)
        qFatal("the folder trees differ");
}

double Seconds(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() * 1e-9;
}

/// What the order is without a table of our own: the same places, of a list that is as it should be.
std::vector<FlatTreePlace> PlainOrder(const std::vector<CatalogRecord>& catalogs) {
    const int count = static_cast<int>(catalogs.size());
    std::unordered_map<std::wstring_view, int> index;
    index.reserve(catalogs.size());
    for (int i = 0; i < count; ++i)
        index.emplace(catalogs[i].id, i);
    flattree::Links links(count);
    for (int i = 1; i < count; ++i)
        if (const auto parent = index.find(catalogs[i].parentId); parent != index.end())
            links.append(parent->second, i);
    std::vector<FlatTreePlace> places;
    places.reserve(catalogs.size());
    places.push_back({0, -1});
    for (int next = 0; next < static_cast<int>(places.size()); ++next)
        for (int child = links.first[places[next].record]; child >= 0; child = links.next[child])
            places.push_back({child, next});
    return places;
}

void CompareOrders(const std::vector<CatalogRecord>& catalogs) {
    size_t ours = 0;
    size_t plain = 0;
    bench::Row(
        "order of 100,000 records by their parents / the same with std::unordered_map", 0.7,
        [&] {
            return Seconds([&] {
                ours = FlatTreeOrder(
                           catalogs, [](const CatalogRecord& catalog) { return std::wstring_view(catalog.id); },
                           [](const CatalogRecord& catalog) { return std::wstring_view(catalog.parentId); },
                           Strays::UnderRoot)
                           .size();
            });
        },
        [&] { return Seconds([&] { plain = PlainOrder(catalogs).size(); }); });
    if (ours != plain)
        qFatal("the orders differ");
}

std::vector<QString> Texts(const std::vector<CatalogRecord>& catalogs) {
    CatalogTreeModel model;
    model.setCatalogs(catalogs);
    std::vector<QString> texts;
    std::vector<QModelIndex> pending{model.index(0, 0)};
    for (size_t next = 0; next < pending.size(); ++next) {
        const QModelIndex index = pending[next];
        texts.push_back(TextOfNode(model.data(index, Qt::DisplayRole)));
        for (int row = 0; row < model.rowCount(index); ++row)
            pending.push_back(model.index(row, 0, index));
    }
    return texts;
}

/// The least that a toggle can do: the same shape as plain structures.
struct BareNode {
    Qt::CheckState state = Qt::Unchecked;
    QList<BareNode*> children;
};

void Set(BareNode* node, Qt::CheckState state, QList<BareNode*>& changed) {
    node->state = state;
    for (BareNode* child : node->children)
        Set(child, state, changed);
    changed.append(node);
}

void CompareToggles() {
    QVector<NameRecord> records;
    std::vector<BareNode> bare(kNodes);
    for (int i = 0; i < kNodes; ++i) {
        records.append({QString::number(i), QString::number(i), i ? QString::number((i - 1) / 10) : QString(), {}});
        if (i)
            bare[(i - 1) / 10].children.append(&bare[i]);
    }
    NameCheckBoxTreeModel model;
    model.build(records);
    auto* top = static_cast<NameCheckBoxTreeNode*>(model.nodeOf(model.index(0, 0)));
    const auto opposite = [](Qt::CheckState state) { return state == Qt::Checked ? Qt::Unchecked : Qt::Checked; };
    bench::Row(
        "check toggle at the top of 100,000 nodes / bare recursive walk", 3.0,
        [&] { return Seconds([&] { top->setCheckState(opposite(top->checkState())); }); },
        [&] {
            return Seconds([&] {
                QList<BareNode*> changed;
                Set(&bare[0], opposite(bare[0].state), changed);
            });
        });
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
#if defined(__linux__)
    mallopt(M_TRIM_THRESHOLD, 1 << 30);  // a large tree's memory is not to go back to the system between two runs
#endif
    const std::vector<CatalogRecord> tree = Catalogs(kNodes, 10);
    const std::vector<CatalogRecord> big = Catalogs(kNodes * 10, 10);
    const std::vector<CatalogRecord> siblings = Catalogs(kNodes, kNodes);
    const std::vector<CatalogRecord> manySiblings = Catalogs(kNodes * 10, kNodes * 10);
    const std::vector<CatalogRecord> fewSiblings = Catalogs(kNodes / 10, kNodes);
    const std::vector<QString> texts = Texts(tree);
    qint64 ours = 0;
    qint64 peers = 0;

    bench::Row(
        "catalog tree of 100,000 nodes, built and walked / QStandardItemModel", 1.0,
        [&] { return BuildAndWalk(tree, ours); },
        [&] {
            // The peer is handed the texts, names with their sums, and need not add them up.
            return BuildAndWalkPeer(
                tree, [&](size_t i) { return texts[i]; }, peers);
        });
    if (ours != peers)
        return 1;  // they did not show the same
    bench::Row(
        "catalog tree of 1,000,000 nodes / 100,000 nodes", 12.0, [&] { return BuildAndWalk(big, ours); },
        [&] { return BuildAndWalk(tree, ours); }, 5);
    bench::Row(
        "1,000,000 siblings / 100,000 siblings", 12.0, [&] { return BuildAndWalk(manySiblings, ours); },
        [&] { return BuildAndWalk(siblings, ours); }, 5);
    // Ten thousand fit the processor's cache and a hundred thousand do not: this row shows that step too.
    bench::Row(
        "100,000 siblings / 10,000 siblings", 12.0, [&] { return BuildAndWalk(siblings, ours); },
        [&] { return BuildAndWalk(fewSiblings, ours); });
    CompareFolders();
    CompareOrders(tree);
    CompareToggles();
    return 0;
}
