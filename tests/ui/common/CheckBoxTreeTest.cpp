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
        QVector<NameRecord> records;
        for (const auto& [name, parent] :
             {std::pair("r", ""), {"a", "r"}, {"b", "r"}, {"a1", "a"}, {"a2", "a"}, {"b1", "b"}})
            records.append({name, name, parent, {}});
        model.build(records);
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
    const std::tuple<const char*, Qt::CheckState, const char*> steps[] = {
        {"a1", Qt::Checked, "a1=+ a=~ r=~ r:a,r,a1=+"},
        {"a2", Qt::Checked, "a2=+ a=+ r=~ r:a,a2=+"},  // r is told, but did not change
        {"b", Qt::Checked, "b=+ r=+ b1=+ r:r,b1,b=+"},
        {"b", Qt::Checked, ""},
        {"a1", Qt::Unchecked, "a1=- a=~ r=~ r:a,r,a1=-"},
        {"r", Qt::Unchecked, "r=- a=- a2=- b=- b1=- r:a,a2,b,b1,r=-"},
        {"a1", Qt::Checked, "a1=+ a=~ r=~ r:a,r,a1=+"},  // partial means checked and walks past unchanged nodes
        {"r", Qt::PartiallyChecked, ""},                 // it is partial already
        {"a", Qt::Checked, "a=+ r=~ a2=+ r:a2,a=+"},
        {"b", Qt::PartiallyChecked, "b=+ r=+ b1=+ r:r,b1,b=+"},
        {"s", Qt::Checked, "s=+ s:s=+"}};  // top-level nodes stand alone
    for (const auto& [name, state, told] : steps)
        EXPECT_EQ(set(name, state), told) << name;
    nodes["b1"]->storeCheckState(Qt::Unchecked);
    EXPECT_EQ(set("r", Qt::PartiallyChecked), "r=+ b1=+ r:b1,r=+");
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
