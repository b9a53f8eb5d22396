#include <gtest/gtest.h>

#include <QDialog>
#include <QQuickItem>

#include "commands/DisclosureManage/ui/task/CatalogTreeWnd.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/ScreenHost.h"

using support::ModalWindow;

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
    EXPECT_EQ(choose([](ModalWindow& window) {
                  EXPECT_EQ(window.dialog()->minimumSize(), QSize(250, 450));
                  EXPECT_TRUE(window.text("  选择路径"));
                  window.click(window.text("基础(4)"));
                  window.click(window.text("确定"));
              }),
              "base");
    EXPECT_EQ(choose([](ModalWindow& window) { window.click(window.text("确定")); }), "");
    EXPECT_EQ(choose([](ModalWindow& window) {
                  window.key(Qt::Key_Down);
                  window.key(Qt::Key_Return);
              }),
              "civil");
    for (const bool isMouse : {true, false})
        EXPECT_EQ(choose([&](ModalWindow& window) {
                      window.click(window.text("机电(5)"));
                      isMouse ? window.click(window.text("取消")) : window.key(Qt::Key_Escape);
                  }),
                  "");
}

TEST_F(Chooser, OffersNoStraysAndOpensManyOnlyWhenTheyAreFound) {
    host.manager.catalogs.push_back({L"stray", L"孤儿", L"gone", 1, 0});
    choose([](ModalWindow& window) {
        EXPECT_TRUE(window.text("基础(4)")) << "a few are open";
        EXPECT_FALSE(window.text("孤儿(1)"));
    });
    for (int i = 0; i < 4000; ++i)
        host.manager.catalogs.push_back({L"n" + std::to_wstring(i), L"Part" + std::to_wstring(i), L"base", 1, i});
    const auto search = [](ModalWindow& window, const char* text) {
        window.find("placeholderText", "搜索目录")->forceActiveFocus();
        window.key(Qt::Key_A, Qt::ControlModifier);
        window.compose("p", text);
        window.key(Qt::Key_Return);
    };
    EXPECT_EQ(choose([&](ModalWindow& window) {
                  EXPECT_TRUE(window.text("土建(4007)"));
                  EXPECT_FALSE(window.text("基础(4004)"));
                  search(window, "没有这个");
                  EXPECT_TRUE(window.text("没有找到“没有这个”"));
                  window.click(window.text("清除搜索"));
                  EXPECT_TRUE(window.text("机电(5)"));
                  search(window, "pART3999");
                  EXPECT_FALSE(window.text("机电(5)"));
                  EXPECT_TRUE(window.text("土建(4007)")) << "numbers count what is left out";
                  window.click(window.text("Part3999(1)"));
                  window.click(window.text("确定"));
              }),
              "n3999");
}

TEST_F(Chooser, SaysThatItCouldNotReadAndReadsAgain) {
    host.manager.refused = L"list";
    host.manager.unsaid = L"服务无法连接";
    EXPECT_EQ(choose([&](ModalWindow& window) {
                  EXPECT_TRUE(window.text("未能读取：服务无法连接"));
                  window.click(window.text("重试"));
                  EXPECT_TRUE(window.text("未能读取：服务无法连接"));
                  host.manager.refused.clear();
                  host.service.become({});
                  ModalWindow::settle();
                  window.click(window.text("基础(4)"));
                  window.click(window.text("确定"));
              }),
              "base");
}

TEST_F(Chooser, ShowsNothingWithoutCatalogsOrManager) {
    QString target = "before";
    host.manager.catalogs.clear();
    ModalWindow::expectNone([&] { EXPECT_EQ(CCatalogTreeWnd::choose(target), 0); });
    EXPECT_EQ(target, "");
    host.manager.refused = L"list";
    ModalWindow::expectNone([&] { EXPECT_EQ(CCatalogTreeWnd::choose(target), 0); });
    host.core.managers.clear();
    ModalWindow::expectNone([&] { EXPECT_EQ(CCatalogTreeWnd::choose(target), -1); });
}
