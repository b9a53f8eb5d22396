#include <gtest/gtest.h>

#include <QStringList>

#include "ui/common/NameCheckBoxTreeModel.h"
#include "ui/common/NameCheckBoxTreeNode.h"

namespace {

/// Two top-level nodes cannot come from one list: the second is appended by hand.
///   top: r(a(a1 a2) b(b1)), s
class CheckBoxTree : public testing::Test {
protected:
    CheckBoxTree() {
        model.build({{"r", "r", "", {}},
                     {"a", "a", "r", {}},
                     {"b", "b", "r", {}},
                     {"a1", "a1", "a", {}},
                     {"a2", "a2", "a", {}},
                     {"b1", "b1", "b", {}}});
        model.appendNode({}, new NameCheckBoxTreeNode(nullptr, "s", "s"));
        for (TreeNode* child : model.nodeOf({})->children())
            listen(child);
    }

    void listen(TreeNode* treeNode) {
        auto* named = static_cast<NameCheckBoxTreeNode*>(treeNode);
        nodes[named->nodeName()] = named;
        QObject::connect(named, &CheckBoxTreeNode::checkStateChanged,
                         [this, named] { log << named->nodeName() + "=" + "-~+"[named->checkState()]; });
        QObject::connect(named, &CheckBoxTreeNode::checkStateFinished,
                         [this, named](const QList<CheckBoxTreeNode*>& changed, Qt::CheckState state) {
                             QStringList names;
                             for (CheckBoxTreeNode* node : changed)
                                 names << static_cast<NameCheckBoxTreeNode*>(node)->nodeName();
                             log << named->nodeName() + ":" + names.join(',') + "=" + "-~+"[state];
                         });
        for (TreeNode* child : treeNode->children())
            listen(child);
    }

    std::string set(const char* name, Qt::CheckState state) {
        log.clear();
        nodes[name]->setProperty("checkState", state);
        return log.join(' ').toStdString();
    }

    NameCheckBoxTreeModel model;
    QHash<QString, NameCheckBoxTreeNode*> nodes;
    QStringList log;
};

}  // namespace

TEST_F(CheckBoxTree, PassesAChoiceUpThenDownInOrder) {
    EXPECT_EQ(set("a1", Qt::Checked), "a1=+ a=~ r=~ r:a,r,a1=+");
    EXPECT_EQ(set("a2", Qt::Checked), "a2=+ a=+ r=~ r:a,a2=+") << "r is told, but did not change";
    EXPECT_EQ(set("b", Qt::Checked), "b=+ r=+ b1=+ r:r,b1,b=+");
    EXPECT_EQ(set("b", Qt::Checked), "");
    EXPECT_EQ(set("a1", Qt::Unchecked), "a1=- a=~ r=~ r:a,r,a1=-");
    EXPECT_EQ(set("r", Qt::Unchecked), "r=- a=- a2=- b=- b1=- r:a,a2,b,b1,r=-");
}

TEST_F(CheckBoxTree, PartialMeansCheckedAndWalksPastUnchangedNodes) {
    set("a1", Qt::Checked);
    EXPECT_EQ(set("r", Qt::PartiallyChecked), "") << "it is partial already";
    EXPECT_EQ(set("a", Qt::Checked), "a=+ r=~ a2=+ r:a2,a=+");
    EXPECT_EQ(set("b", Qt::PartiallyChecked), "b=+ r=+ b1=+ r:r,b1,b=+");
    nodes["b1"]->storeCheckState(Qt::Unchecked);
    EXPECT_EQ(set("r", Qt::PartiallyChecked), "r=+ b1=+ r:b1,r=+");
}

TEST_F(CheckBoxTree, TopLevelNodesStandAlone) {
    EXPECT_EQ(set("s", Qt::Checked), "s=+ s:s=+");
    EXPECT_EQ(nodes["r"]->checkState(), Qt::Unchecked);
}

TEST_F(CheckBoxTree, TouchTellsEverythingBelowAndThenItself) {
    nodes["b1"]->storeCheckState(Qt::Checked);
    log.clear();
    nodes["r"]->touchCheckState();
    EXPECT_EQ(log.join(' ').toStdString(), "a=- a1=- a2=- b=- b1=+ r=-");
}

TEST_F(CheckBoxTree, DeepChainsArePassedThroughWithoutDeepRecursion) {
    auto* top = new NameCheckBoxTreeNode;
    CheckBoxTreeNode* leaf = top;
    for (int depth = 0; depth < 100000; ++depth)
        leaf = new CheckBoxTreeNode(leaf);
    model.appendNode({}, top);
    top->setCheckState(Qt::Checked);
    EXPECT_EQ(leaf->checkState(), Qt::Checked);
    leaf->setCheckState(Qt::Unchecked);
    EXPECT_EQ(top->checkState(), Qt::Unchecked);
}
