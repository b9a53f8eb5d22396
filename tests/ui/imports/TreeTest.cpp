#include "tests/support/Scene.h"
#include "ui/common/NameTreeModel.h"
#include "ui/common/NameTreeNode.h"

using support::Scene;

namespace {

class NamedTree : public NameTreeModel {
    Q_OBJECT
public:
    Q_INVOKABLE QString name(const QModelIndex& index) const {
        return index.isValid() ? static_cast<NameTreeNode*>(nodeOf(index))->nodeName() : "";
    }
};

/// all > (site > (pit, wall), office)
class TreeTest : public testing::Test {
protected:
    TreeTest() {
        fill("");
        QObject::connect(&model, &TreeModel::expanded, [this](auto index) { calls += "expand " + model.name(index); });
        QObject::connect(&model, &TreeModel::collapsed,
                         [this](auto index) { calls += "collapse " + model.name(index); });
    }

    void fill(const QString& suffix) {
        model.build({{"all" + suffix, "all", "", {}},
                     {"site" + suffix, "site", "all", {}},
                     {"office" + suffix, "office", "all", {}},
                     {"pit" + suffix, "pit", "site", {}},
                     {"wall" + suffix, "wall", "site", {}}});
    }

    QModelIndex top() const { return model.index(0, 0); }
    QModelIndex site() const { return model.index(0, 0, top()); }
    QVariantMap context() { return {{"theModel", QVariant::fromValue<QObject*>(&model)}}; }

    NamedTree model;
    QStringList calls;
};

constexpr auto open = "UxTreeView { width: 300; height: 300; model: theModel }";
constexpr auto closed = "UxTreeView2 { width: 300; height: 300; model: theModel; initialExpandAll: false }";

/// The texts of the shown rows, once the view has settled at the expected ones.
std::string shown(const Scene& scene, const QString& expected) {
    const auto rows = [&] { return scene.texts().join(' '); };
    return QTest::qWaitFor([&] { return rows() == expected; }, 3000) ? expected.toStdString() : rows().toStdString();
}

#define EXPECT_SHOWN(scene, expected) EXPECT_EQ(shown(scene, expected), expected)

TEST_F(TreeTest, ExpandsToADepthAndNoFurtherThanTheMaximum) {
    Scene scene(closed, context());
    scene.evaluate("expandToDepth(1)");
    EXPECT_SHOWN(scene, "all site office");
    scene.evaluate("maxDepth = 1, expandToDepth(9)");
    model.expand(site());
    EXPECT_SHOWN(scene, "all site office");
    scene.evaluate("maxDepth = -1, expandToDepth(9)");
    EXPECT_SHOWN(scene, "all site pit wall office");
    scene.evaluate("expandToDepth(0)");
    EXPECT_SHOWN(scene, "all");
}

TEST_F(TreeTest, FollowsTheModelAndReportsTheUserOnce) {
    Scene scene(closed, context());
    EXPECT_SHOWN(scene, "all");
    model.expand(top());
    EXPECT_SHOWN(scene, "all site office");
    model.collapse(top());
    EXPECT_SHOWN(scene, "all");

    calls.clear();
    scene.evaluate("select(theModel.index(0, 0)), forceActiveFocus()");
    scene.key(Qt::Key_Right);
    EXPECT_SHOWN(scene, "all site office");
    scene.key(Qt::Key_Left);
    EXPECT_SHOWN(scene, "all");
    EXPECT_EQ(calls, QStringList({"expand all", "collapse all"}));
}

TEST_F(TreeTest, KeepsWhatIsOpenThroughNewRowsAndANewLayout) {
    Scene scene(open, context());
    scene.evaluate("collapse(theModel.index(0, 0, theModel.index(0, 0)))");
    EXPECT_SHOWN(scene, "all site office");
    model.moveNode(model.appendNode(top(), new NameTreeNode(nullptr, "gate")), -2);
    EXPECT_SHOWN(scene, "all gate site office");
    model.addNode(top(), new NameTreeNode(nullptr, "yard"));
    EXPECT_SHOWN(scene, "all gate site office yard");
}

TEST_F(TreeTest, OpensInsertedRowsAndATreeThatReplacesTheFormer) {
    const Scene scene(open, context());
    EXPECT_SHOWN(scene, "all site pit wall office");
    auto* yard = new NameTreeNode(nullptr, "yard");
    new NameTreeNode(yard, "crane");
    model.appendNode(top(), yard);
    EXPECT_SHOWN(scene, "all site pit wall office yard crane");
    model.appendNode(model.index(1, 0, top()), new NameTreeNode(nullptr, "desk"));
    EXPECT_SHOWN(scene, "all site pit wall office desk yard crane");
    fill("2");
    EXPECT_SHOWN(scene, "all2 site2 pit2 wall2 office2");
    model.removeNode(model.index(1, 0, top()));
    EXPECT_SHOWN(scene, "all2 site2 pit2 wall2");
}

TEST_F(TreeTest, CurrentIndexIsTheSelectionWhateverMovesAround) {
    Scene scene(
        "UxTreeView { width: 300; height: 300; model: theModel; property var seen: []\n"
        "onCurrentIndexChanged: seen.push(theModel.name(currentIndex)) }",
        context());
    scene.evaluate("select(theModel.index(1, 0, theModel.index(0, 0))), seen = []");
    model.moveNode(model.appendNode(top(), new NameTreeNode(nullptr, "gate")), -2);
    scene.evaluate("collapse(theModel.index(1, 0, theModel.index(0, 0)))");
    scene.settle();
    const QStringList seen = scene.evaluate("seen").toStringList();
    for (const QString& name : seen)
        EXPECT_EQ(name, "office");
    EXPECT_EQ(scene.evaluate("theModel.name(currentIndex)"), "office");
    EXPECT_TRUE(scene.becomes("__currentRow == 3"));
}

TEST_F(TreeTest, ClosingARowTakesTheSelectionInsideItAlong) {
    Scene scene(open, context());
    scene.evaluate(
        "select(theModel.index(0, 0, theModel.index(0, 0, theModel.index(0, 0)))), collapse(theModel.index(0, 0))");
    EXPECT_EQ(scene.evaluate("theModel.name(currentIndex)"), "all");
}

TEST_F(TreeTest, IsWalkedByKeyboard) {
    Scene scene(
        "UxTreeView { width: 300; height: 300; model: theModel; property string entered\n"
        "onActivated: entered = theModel.name(index) }",
        context());
    scene.evaluate("forceActiveFocus()");
    const std::pair<QList<Qt::Key>, const char*> steps[] = {{{Qt::Key_End}, "office"},
                                                            {{Qt::Key_Home}, "all"},
                                                            {{Qt::Key_Right, Qt::Key_Down}, "pit"},
                                                            {{Qt::Key_Left, Qt::Key_Return}, "site"}};
    for (const auto& [keys, current] : steps) {
        for (const Qt::Key key : keys)
            scene.key(key);
        EXPECT_EQ(scene.evaluate("theModel.name(currentIndex)"), current);
    }
    EXPECT_EQ(scene.evaluate("entered"), "site");
}

TEST_F(TreeTest, AClickOnTheExpanderClosesARowWithoutSelectingIt) {
    Scene scene(open, context());
    const auto expanders =
        scene.items([](QQuickItem* item) { return item->property("source").toString().contains("tree/open"); });
    ASSERT_EQ(expanders.size(), 2);
    scene.click(expanders.last());
    EXPECT_SHOWN(scene, "all site office");
    EXPECT_EQ(calls, QStringList({"collapse site"}));
    EXPECT_FALSE(scene.evaluate("currentIndex.valid").toBool());
}

TEST_F(TreeTest, MakesDelegatesForVisibleRowsOnly) {
    for (int row = 0; row < 5000; ++row)
        model.appendNode(top(), new NameTreeNode(nullptr, QString::number(row)));
    const Scene scene(open, context());
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene.texts().size() > 5; }));
    EXPECT_LT(scene.texts().size(), 100);
}

}  // namespace

#include "TreeTest.moc"
