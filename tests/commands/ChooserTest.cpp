#include <gtest/gtest.h>

#include <QDialog>

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
