#include <gtest/gtest.h>
#include <limits>

#include <QSignalSpy>

#include "commands/DisclosureManage/ui/task/CatalogEditor.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "tests/support/ScreenHost.h"

namespace {

CatalogTreeNode* Find(TreeNode* node, const QString& id) {
    for (TreeNode* child : node->children()) {
        if (static_cast<CatalogTreeNode*>(child)->id() == id)
            return static_cast<CatalogTreeNode*>(child);
        if (CatalogTreeNode* found = Find(child, id))
            return found;
    }
    return nullptr;
}

class Catalogs : public testing::Test {
protected:
    Catalogs() {
        host.manager.fill();
        model.setCatalogs(host.manager.catalogs);
    }
    std::string shown(const char* id) { return Find(model.nodeOf({}), id)->nodeDisName().toStdString(); }
    QModelIndex indexOf(const char* id) { return model.indexOf(Find(model.nodeOf({}), id)); }

    support::ScreenHost host;
    CatalogTreeModel model;
};

}  // namespace

TEST_F(Catalogs, CountsFollowEveryReport) {
    QSignalSpy civil(Find(model.nodeOf({}), "civil"), &CatalogTreeNode::nodeDisNameChanged);
    model.updateCatalogTaskCount(2, "base");
    EXPECT_EQ(shown("base"), "基础(6)");
    EXPECT_EQ(shown("civil"), "土建(9)");
    EXPECT_EQ(shown("all"), "全部");
    EXPECT_EQ(civil.count(), 1);
    const std::pair<int, const char*> senseless[] = {
        {-7, "base"}, {std::numeric_limits<int>::max(), "base"}, {0, "base"}, {3, "nobody"}, {3, ""}};
    for (const auto& [change, catalog] : senseless)
        model.updateCatalogTaskCount(change, catalog);
    EXPECT_EQ(shown("base"), "基础(6)");
    EXPECT_EQ(civil.count(), 1);
    model.setCurrentIndex(indexOf("mep"));
    model.updateCatalogTaskCount(-5, "");
    EXPECT_EQ(shown("mep"), "机电(0)");
}

TEST_F(Catalogs, CountsFollowNodesThatComeAndGo) {
    model.removeNode(indexOf("base"));
    EXPECT_EQ(shown("civil"), "土建(3)");
    auto* subtree = new CatalogTreeNode("装修", "deco", "civil");
    subtree->changeOwnCount(2);
    auto* below = new CatalogTreeNode("吊顶", "ceiling", "deco");
    below->changeOwnCount(9);
    subtree->insertChild(0, below);
    model.appendNode(indexOf("civil"), subtree);
    EXPECT_EQ(shown("civil"), "土建(14)");
    EXPECT_EQ(shown("deco"), "装修(11)");
    delete below;
    EXPECT_EQ(shown("civil"), "土建(5)");
}

TEST_F(Catalogs, StraysHangUnderTheTopAndBadNumbersCountAsNone) {
    constexpr int kMost = std::numeric_limits<int>::max();
    model.setCatalogs({{L"all", L"全部", L"", 0, 0},
                       {L"a", L"a", L"all", kMost, 0},
                       {L"b", L"b", L"a", kMost, 0},
                       {L"x", L"x", L"gone", -4, 0},
                       {L"all", L"again", L"a", 1, 0}});
    EXPECT_EQ(shown("a"), "a(4294967294)");
    EXPECT_EQ(shown("x"), "x(0)");
    EXPECT_EQ(indexOf("x").parent(), indexOf("all"));
    EXPECT_EQ(model.pathOf("b").toStdString(), "a / b");
    EXPECT_EQ(model.pathOf("all") + model.pathOf("nobody"), "");
    model.setCatalogs({{L"a", L"a", L"nobody", 0, 0}});
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.defaultIndex().isValid());
}

TEST_F(Catalogs, ProposesTheNextFolderName) {
    CCatalogEditor editor(model, nullptr);
    const std::pair<QStringList, const char*> rows[] = {{{"其它"}, "新建文件夹"},
                                                        {{"新建文件夹"}, "新建文件夹1"},
                                                        {{"新建文件夹1", "新建文件夹7"}, "新建文件夹8"},
                                                        {{"新建文件夹", "新建文件夹2", "新建文件夹abc"}, "新建文件夹3"},
                                                        {{"新建文件夹99999999999", "我的新建文件夹5"}, "新建文件夹"},
                                                        {{"新建文件夹2147483647"}, "新建文件夹2147483648"},
                                                        {{}, "新建文件夹"}};  // nothing is selected
    for (const auto& [names, proposal] : rows) {
        std::vector<DISCLOSUREPACKAGE::CatalogRecord> records{{L"all", L"全部", L"", 0, 0}};
        for (const QString& name : names)
            records.push_back({std::to_wstring(records.size()), name.toStdWString(), L"all", 0, 0});
        model.setCatalogs(records);
        model.setCurrentIndex(model.index(0, 0, model.index(0, 0)));
        EXPECT_EQ(editor.nextFolderName(), proposal);
    }
}

TEST_F(Catalogs, AFailedReloadKeepsTheTree) {
    CCatalogEditor editor(model, nullptr);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    for (const wchar_t* refused : {L"list", L"save"}) {
        host.manager.refused = refused;
        host.manager.catalogs.clear();
        EXPECT_FALSE(editor.load(false));
        EXPECT_TRUE(model.reading()->isFailed() && !model.reading()->covers());
    }
    host.core.managers.clear();
    EXPECT_FALSE(editor.load(true));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(shown("civil"), "土建(7)");
}
