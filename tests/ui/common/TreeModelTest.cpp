#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>

#include "ui/common/FlatTree.h"
#include "ui/common/NameTreeModel.h"
#include "ui/common/NameTreeNode.h"
#include "ui/common/TreeModel.h"

namespace {

/// The tester takes what stands under the display role for a text, which a node is not: it is held back.
class TestedModel : public NameTreeModel {
public:
    QVariant data(const QModelIndex&, int) const override { return {}; }

private:
    QAbstractItemModelTester m_tester{this, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

/// The tree as text: "root(a(b)c)".
QString Outline(const TreeNode* node) {
    QStringList parts;
    for (TreeNode* child : node->children()) {
        const auto* named = static_cast<NameTreeNode*>(child);
        const QString below = Outline(child);
        parts << (below.isEmpty() ? named->nodeName() : named->nodeName() + "(" + below + ")");
    }
    return parts.join(' ');
}

QString Build(const QVector<NameRecord>& records) {
    TestedModel model;
    model.build(records);
    return Outline(model.nodeOf({}));
}

NameRecord Record(const char* id, const char* parentId) {
    return {id, id, parentId, {}};
}

TEST(TreeModel, QmlCollectsNoNodeThatItHasAskedFor) {
    TreeModel model;
    model.addNode({}, new NameTreeNode);
    QQmlEngine engine;
    engine.globalObject().setProperty("model", engine.newQObject(&model));
    QQmlEngine::setObjectOwnership(&model, QQmlEngine::CppOwnership);
    const QPointer<TreeNode> node = model.nodeOf(model.index(0, 0));
    EXPECT_FALSE(engine.evaluate("(function (index) { return model.data(index, 0) !== undefined })")
                     .call({engine.toScriptValue(model.index(0, 0))})
                     .isError());
    engine.collectGarbage();
    EXPECT_TRUE(node);
}

}  // namespace

TEST(TreeModel, StaysConsistentThroughEveryChange) {
    TestedModel model;
    model.build({Record("r", ""), Record("a", "r"), Record("b", "r"), Record("c", "r"), Record("b1", "b")});
    const QModelIndex root = model.index(0, 0);
    const QPersistentModelIndex c = model.index(2, 0, root);
    int layouts = 0;
    QObject::connect(&model, &QAbstractItemModel::layoutChanged, [&layouts] { ++layouts; });

    EXPECT_TRUE(model.moveNode(c, -1));
    EXPECT_EQ(Outline(model.nodeOf({})), "r(a c b(b1))");
    EXPECT_EQ(c.row(), 1);
    EXPECT_TRUE(model.moveNode(model.index(0, 0, root), 1));
    EXPECT_FALSE(model.moveNode(model.index(2, 0, root), 1));
    EXPECT_FALSE(model.moveNode(model.index(0, 0, root), -1));
    EXPECT_EQ(Outline(model.nodeOf({})), "r(c a b(b1))");
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(model.nodeOf(model.index(row, 0, root))->row(), row);

    const QModelIndex added = model.appendNode(c, new NameTreeNode(nullptr, "new"));
    EXPECT_EQ(added.parent(), c);
    model.removeNode(model.index(1, 0, root));
    EXPECT_EQ(Outline(model.nodeOf({})), "r(c(new) b(b1))");
    EXPECT_EQ(layouts, 0);
    model.addNode(model.index(1, 0, root), new NameTreeNode(nullptr, "late"));
    EXPECT_EQ(Outline(model.nodeOf({})), "r(c(new) b(b1 late))");
    EXPECT_EQ(layouts, 1);
}

TEST(TreeModel, OldTreeLivesUntilTheEventLoopRuns) {
    NameTreeModel model;
    model.build({Record("r", ""), Record("a", "r")});
    const QPointer<TreeNode> old = model.nodeOf(model.index(0, 0));
    const QPersistentModelIndex index = model.index(0, 0);
    model.setCurrentIndex(index);
    QSignalSpy current(&model, &SelectionTreeModel::currentIndexChanged);
    int layouts = 0;
    QObject::connect(&model, &QAbstractItemModel::layoutChanged, [&layouts] { ++layouts; });
    QSignalSpy expandedSpy(&model, &TreeModel::collapsed);

    model.build({Record("s", "")});
    EXPECT_EQ(Outline(model.nodeOf({})), "s");
    EXPECT_FALSE(index.isValid());
    EXPECT_EQ(current.count(), 1);
    EXPECT_EQ(layouts, 1);
    ASSERT_TRUE(old);
    old->setExpanded(false);
    EXPECT_EQ(expandedSpy.count(), 0) << "the model no longer shows that node";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(old);

    model.setCurrentIndex(model.index(0, 0));
    model.clear();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.currentIndex().isValid());
    EXPECT_EQ(current.count(), 3);
}

TEST(TreeModel, ReportsExpansionOnceWhateverTheWay) {
    NameTreeModel model;
    model.build({Record("r", ""), Record("a", "r"), Record("b", "r")});
    const QModelIndex b = model.index(1, 0, model.index(0, 0));
    QStringList told;
    const auto note = [&](const QString& what) {
        return [&told, &b, what](const QModelIndex& index) { told << what + (index == b ? " b" : " another"); };
    };
    QObject::connect(&model, &TreeModel::expanded, note("open"));
    QObject::connect(&model, &TreeModel::collapsed, note("close"));

    EXPECT_TRUE(model.isExpanded(b));
    model.collapse(b);
    EXPECT_FALSE(model.isExpanded(b));
    model.nodeOf(b)->setExpanded(true);
    model.nodeOf(b)->setExpanded(true);
    EXPECT_EQ(told, (QStringList{"close b", "open b"}));
    model.expand(b);
    model.expand({});
    EXPECT_EQ(told.mid(2), QStringList{"open b"});
    EXPECT_FALSE(model.isExpanded({}));
}

TEST(FlatTree, KeepsTheOrderOfTheListWhereverParentsStand) {
    EXPECT_EQ(Build({Record("b1", "b"), Record("b", "r"), Record("r", ""), Record("a", "r"), Record("b0", "b")}),
              "r(b(b1 b0) a)");
    EXPECT_EQ(Build({{"first r", "r", "x", {}}, Record("r", ""), Record("a", "r")}), "r(a)");
    EXPECT_EQ(Build({Record("a", "r"), Record("r", "x")}), "");
    EXPECT_EQ(Build({}), "");
}

TEST(FlatTree, WrongListsNeitherHangNorCrash) {
    QVector<NameRecord> wrong = {{"r", "r", "", {}}, {"a", "a", "r", {}}, {"second a", "a", "r", {}}};
    const std::pair<const char*, const char*> strays[] = {{"orphan", "nobody"}, {"below", "orphan"}, {"x", "y"},
                                                          {"y", "x"},           {"self", "self"},    {"", "r"},
                                                          {"r2", ""},           {"r", "a"}};
    for (const auto& [id, parentId] : strays)
        wrong.append(Record(id, parentId));
    EXPECT_EQ(Build(wrong), "r(a)");

    const auto idOf = [](const NameRecord& record) { return record.id; };
    const auto parentOf = [](const NameRecord& record) { return record.parentId; };
    TreeNode top;
    CreateFlatTree<NameTreeNode>(
        FlatTreeOrder(wrong, idOf, parentOf, Strays::UnderRoot),
        [&](int index, NameTreeNode* parent) { return new NameTreeNode(parent ? parent : &top, wrong[index].name); });
    EXPECT_EQ(Outline(&top), "r(a orphan(below) r2 x(y) self)");
    EXPECT_EQ(Build({{"root without id", "", "", {}}, {"child of nothing", "c", "", {}}}), "root without id");
}

TEST(FlatTree, DeepChainsAreBuiltAndDeletedWithoutDeepRecursion) {
    constexpr int kDepth = 200000;
    QVector<NameRecord> records{Record("0", "")};
    for (int i = 1; i < kDepth; ++i)
        records.append({{}, QString::number(i), QString::number(i - 1), {}});
    NameTreeModel model;
    model.build(records);
    model.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(model.rowCount(), 0);
}
