#include "commands/DisclosureManage/ui/task/CatalogTreeWnd.h"
#include "tests/commands/TaskWindow.h"

namespace {

class Chooser : public testing::Test {
protected:
    Chooser() { host.manager.fill(); }

    std::string choose(const ModalWindow::Steps& steps) {
        QString target = "before";
        ModalWindow::run([&target] { EXPECT_EQ(CCatalogTreeWnd::choose(target), 0); }, steps);
        return target.toStdString();
    }

    support::ScreenHost host;
};

}  // namespace

TEST_F(Chooser, GivesTheSelectedCatalogButNotTheTop) {
    const auto looks = [](ModalWindow& window) {
        EXPECT_EQ(window.dialog()->minimumSize(), QSize(250, 450));
        EXPECT_EQ(window.wrong({"  选择路径", "基础(4)"}), "") << "a few are open";
    };
    const std::pair<ModalWindow::Steps, const char*> ways[] = {
        {looks, ""},
        {[](ModalWindow& window) { window.click("基础(4)").click("确定"); }, "base"},
        {[](ModalWindow& window) { window.click("确定"); }, ""},
        {[](ModalWindow& window) { window.key(Qt::Key_Down).key(Qt::Key_Return); }, "civil"},
        {[](ModalWindow& window) { window.click("机电(5)").click("取消"); }, ""},
        {[](ModalWindow& window) { window.click("机电(5)").key(Qt::Key_Escape); }, ""}};
    for (const auto& [steps, chosen] : ways)
        EXPECT_EQ(choose(steps), chosen) << &steps - &ways[0].first;
}

TEST_F(Chooser, OffersNoStraysAndOpensManyOnlyWhenTheyAreFound) {
    host.manager.catalogs.push_back({L"stray", L"孤儿", L"gone", 1, 0});
    for (int i = 0; i < 4000; ++i)
        host.manager.catalogs.push_back({L"n" + std::to_wstring(i), L"Part" + std::to_wstring(i), L"base", 1, i});
    EXPECT_EQ(choose([&](ModalWindow& window) {
                  QQuickItem* search = window.find("placeholderText", "搜索目录");
                  EXPECT_EQ(window.wrong({"土建(4007)", "!基础(4004)", "!孤儿(1)"}), "");
                  window.fill(search, "没有这个").key(Qt::Key_Return);
                  EXPECT_TRUE(window.text("没有找到“没有这个”"));
                  window.click("清除搜索");
                  EXPECT_TRUE(window.text("机电(5)"));
                  window.fill(search, "pART3999").key(Qt::Key_Return);
                  EXPECT_EQ(window.wrong({"!机电(5)", "土建(4007)"}), "") << "numbers count what is left out";
                  window.click("Part3999(1)").click("确定");
              }),
              "n3999");
}

TEST_F(Chooser, SaysThatItCouldNotReadAndReadsAgain) {
    host.manager.refused = L"list";
    host.manager.unsaid = L"服务无法连接";
    EXPECT_EQ(choose([&](ModalWindow& window) {
                  EXPECT_TRUE(window.text("未能读取：服务无法连接"));
                  window.click("重试");
                  EXPECT_TRUE(window.text("未能读取：服务无法连接"));
                  host.manager.refused.clear();
                  host.service.become({});
                  window.settle();
                  window.click("基础(4)").click("确定");
              }),
              "base");
}

TEST_F(Chooser, ShowsNothingWithoutCatalogsOrManager) {
    QString target = "before";
    const auto expectNone = [&](int result) {
        ModalWindow::expectNone([&] { EXPECT_EQ(CCatalogTreeWnd::choose(target), result); });
    };
    host.manager.catalogs.clear();
    expectNone(0);
    EXPECT_EQ(target, "");
    host.manager.refused = L"list";
    expectNone(0);
    host.core.managers.clear();
    expectNone(-1);
}
