#include <gtest/gtest.h>
#include <map>

#include <QDialog>
#include <QMetaMethod>
#include <QQuickItem>
#include <QTest>

#include "commands/DisclosureManage/DisclosureMgrProvider.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/QuickPilot.h"
#include "tests/support/ScreenHost.h"

using BASETOOLS::CAuthCodeTool;
using support::ModalWindow;

namespace {

class MainWindow : public testing::Test {
protected:
    MainWindow() {
        host.manager.fill();
        host.rights.granted = {CAuthCodeTool::GetAuthCode(CAuthCodeTool::kEditCatalogs),
                               CAuthCodeTool::GetAuthCode(CAuthCodeTool::kEditTasks),
                               CAuthCodeTool::GetAuthCode(CAuthCodeTool::kDeleteTasks)};
    }

    void run(const std::function<void(ModalWindow&, CatalogTreeModel&)>& steps) {
        ModalWindow::run([this] { provider.ShowMainWindow(); },
                         [&](ModalWindow& window) {
                             auto* model = qobject_cast<CatalogTreeModel*>(window.context("theModel"));
                             ASSERT_TRUE(model);
                             host.manager.calls.clear();
                             steps(window, *model);
                         });
    }

    /// The calls since the window was opened, joined by " | ".
    std::string calls() {
        QStringList list;
        for (const std::wstring& call : host.manager.calls)
            list << QString::fromStdWString(call);
        host.manager.calls.clear();
        return list.join(" | ").toStdString();
    }

    static std::string current(const CatalogTreeModel& model) {
        const CatalogTreeNode* node = model.GetCurrentNode();
        return node ? node->nodeName().toStdString() : "nothing";
    }

    static std::string outline(const TreeNode* node) {
        std::string text;
        for (TreeNode* child : node->children()) {
            const std::string below = outline(child);
            text += (text.empty() ? "" : " ") + static_cast<CatalogTreeNode*>(child)->nodeDisName().toStdString() +
                    (below.empty() ? "" : "[" + below + "]");
        }
        return text;
    }
    static std::string outline(const CatalogTreeModel& model) { return outline(model.nodeOf({})); }

    /// The catalogs as the tree shows them, from top to bottom.
    static std::string rows(const ModalWindow& window) {
        std::map<qreal, std::string> found;
        QList<QQuickItem*> pending{window.view()->contentItem()};
        while (!pending.isEmpty()) {
            const QQuickItem* item = pending.takeLast();
            pending += item->childItems();
            if (item->isVisible() && item->inherits("QQuickText") &&
                item->parentItem()->property("whiteWhenSelected").isValid())
                found[item->mapToScene({}).y()] += " " + item->property("text").toString().toStdString();
        }
        std::string text;
        for (const auto& [y, row] : found)
            text += row;
        return text;
    }

    static QString field(const ModalWindow& window) {
        const QQuickItem* item = window.view()->activeFocusItem();
        return item ? item->property("text").toString() : QString();
    }
    static const TaskManagerViewModel* taskList(const ModalWindow& window) {
        return qobject_cast<TaskManagerViewModel*>(window.context("theTaskModel"));
    }
    /// Renames what is current and returns the messages.
    std::string rename(ModalWindow& window, const QString& name) {
        host.messages.clear();
        window.key(Qt::Key_F2);
        window.key(Qt::Key_Delete);
        window.type(name);
        window.key(Qt::Key_Return);
        return host.messages.join('|').toStdString();
    }

    support::ScreenHost host;
    DisclosureMgrProvider provider;
};

constexpr char kFilled[] = "全部[土建(7)[基础(4) 主体(0)] 机电(5)]";

}  // namespace

TEST_F(MainWindow, OpensAtTheTopCatalogInTheGivenSize) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        EXPECT_EQ(outline(model), kFilled);
        EXPECT_EQ(current(model), "全部");
        EXPECT_EQ(window.dialog()->minimumSize(), QSize(800, 560));
        EXPECT_EQ(window.dialog()->parentWidget(), &host.window);
        EXPECT_EQ(window.dialog()->windowTitle(), "交底管理");
        for (const char* row : {"全部", "土建(7)", "机电(5)"})
            EXPECT_TRUE(window.text(row)) << row;
        EXPECT_FALSE(window.text("基础(4)")) << "only the top is open";
        provider.slotCatalogOption("x", "new");
        provider.slotCatalogOption({}, "new");
        // A second run of the command shows the same window.
        provider.ShowMainWindow();
        EXPECT_EQ(calls(), "");

        window.click(window.text("机电(5)"));
        EXPECT_EQ(current(model), "机电");
        EXPECT_EQ(taskList(window)->catalogId(), "mep");
        window.key(Qt::Key_Up);
        EXPECT_EQ(current(model), "土建");
        window.key(Qt::Key_Right);
        EXPECT_TRUE(window.text("基础(4)"));
    });
    QWidget other;
    host.manager.SetParentWidget(&other);
    run([&](ModalWindow& window, CatalogTreeModel&) { EXPECT_EQ(window.dialog()->parentWidget(), &other); });
}

TEST_F(MainWindow, SlotsStandInTheirOrder) {
    const QMetaObject& meta = DisclosureMgrProvider::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).name();
    EXPECT_EQ(names.join(' ').toStdString(),
              "slotCatalogOption slotWindowClose slotWindowWidthChanged slotWindowHeightChanged slotToggleMaximized "
              "slotUpdateNextFolderName onTitlebarPressed onTitlebarPositionChanged onTitleBarDoubleClicked");
}

TEST_F(MainWindow, CreatesByMouseAndByKeyboard) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        window.click(window.text("土建(7)"));
        window.click(window.button("新建"));
        ASSERT_TRUE(window.text("  文件夹新建"));
        EXPECT_EQ(field(window), "新建文件夹");
        window.compose("jichu", "装修");
        EXPECT_EQ(field(window), "装修") << "the proposal was selected and gives way";
        window.click(window.text("确定"));
        EXPECT_FALSE(window.text("  文件夹新建"));
        EXPECT_EQ(outline(model), "全部[土建(7)[基础(4) 主体(0) 装修(0)] 机电(5)]");
        EXPECT_TRUE(window.text("装修(0)")) << "the catalog was opened";
        EXPECT_EQ(current(model), "土建");
        const auto* added = static_cast<CatalogTreeNode*>(model.nodeOf(model.index(2, 0, model.currentIndex())));
        EXPECT_EQ(added->id().size(), 36);

        calls();
        window.key(Qt::Key_Insert);
        window.type("a");
        window.key(Qt::Key_Escape);
        EXPECT_EQ(calls(), "");
        window.key(Qt::Key_Insert);
        window.type("a?");  // no check on create
        window.key(Qt::Key_Return);
        EXPECT_EQ(calls(), "save a? in civil | log 新建交底目录 技术→交底管理→新建目录");
    });
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(MainWindow, ARefusedNameStaysInThePopUp) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        window.click(window.text("土建(7)"));
        window.key(Qt::Key_F2);
        EXPECT_EQ(field(window), "土建");
        window.type("土木");
        window.click(window.text("确定"));
        EXPECT_EQ(calls(), "rename civil to 土木 | log 修改交底目录 技术→交底管理→修改目录");
        EXPECT_TRUE(window.text("土木(7)"));

        // An accepted name went before; the next ones are refused all the same.
        host.manager.refused = L"rename";
        window.key(Qt::Key_F2);
        window.type("机电");
        window.click(window.text("确定"));
        EXPECT_TRUE(window.text("  文件夹重命名"));
        window.click(window.text("机电"));  // the field
        window.key(Qt::Key_A, Qt::ControlModifier);
        window.type("a/b");
        window.click(window.text("确定"));
        EXPECT_EQ(host.messages, QStringList("文件夹名称不能包含\\/:*?\"<>|"));
        EXPECT_TRUE(window.text("a/b"));
        window.click(window.text("取消"));
        EXPECT_EQ(outline(model), "全部[土木(7)[基础(4) 主体(0)] 机电(5)]");

        host.manager.refused = L"save";
        window.click(window.button("新建"));
        window.type("x");
        window.click(window.text("确定"));
        EXPECT_TRUE(window.text("  文件夹新建"));
        window.click(window.text("x"));
        window.key(Qt::Key_Return);  // Enter closes in any case
        EXPECT_FALSE(window.text("  文件夹新建"));
        EXPECT_EQ(outline(model), "全部[土木(7)[基础(4) 主体(0)] 机电(5)]");
    });
}

TEST_F(MainWindow, ChecksNamesWithTheFirstFailingRule) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        window.click(window.text("机电(5)"));
        const std::pair<QString, const char*> wrong[] = {{"  ", "文件夹名称不能为空"},
                                                         {QString(129, 'x') + "?", "文件夹名称不能包含\\/:*?\"<>|"},
                                                         {QString(129, 'x'), "文件夹名称长度需1-50之间"},
                                                         {"全部", "全部是一个特殊的字段名"}};
        for (const auto& [name, message] : wrong)
            EXPECT_EQ(rename(window, name), message);
        EXPECT_EQ(calls(), "");
        EXPECT_EQ(outline(model), kFilled);
        EXPECT_EQ(rename(window, QString(128, 'x')), "");
        EXPECT_NE(calls(), "");

        // A hand that moves there leaves the tool tip of the long name behind.
        QTest::mouseMove(window.view(), window.text("全部")->mapToScene({5, 5}).toPoint());
        ModalWindow::settle();
        window.click(window.text("全部"));
        EXPECT_EQ(rename(window, "?"), "");
        EXPECT_EQ(calls(), "");
        EXPECT_EQ(current(model), "全部");
    });
}

TEST_F(MainWindow, DeletesAfterAskingAndSelectsTheNeighbour) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        const QString question = "删除后，此目录下的交底任务无法恢复，是否确定删除？\n";
        window.click(window.text("土建(7)"));
        host.answer = BASEUI::MessageResult::Cancel;
        window.click(window.button("删除"));
        EXPECT_EQ(host.messages, QStringList(question + "目录“土建”：2个下级目录，7个任务?"));
        EXPECT_TRUE(host.progress.isEmpty());
        EXPECT_EQ(calls(), "");

        host.answer = BASEUI::MessageResult::Ok;
        host.manager.refused = L"delete";
        window.key(Qt::Key_Delete);
        EXPECT_EQ(host.progress, QStringList({"处理状态/处理中，请稍后...", "closed"}));
        EXPECT_EQ(calls(), "delete civil");
        EXPECT_EQ(outline(model), kFilled);

        host.manager.refused.clear();
        window.click(window.button("删除"));
        EXPECT_EQ(calls(), "delete civil | log 删除交底目录 技术→交底管理→删除目录");
        EXPECT_EQ(outline(model), "全部[机电(5)]");
        EXPECT_EQ(current(model), "机电");
        window.key(Qt::Key_Delete);
        EXPECT_EQ(current(model), "全部");
        EXPECT_FALSE(window.text("机电(5)"));

        // Without the top there is nothing, until the service gives a new one.
        host.manager.catalogs.resize(1);
        calls();
        window.key(Qt::Key_Delete);
        EXPECT_EQ(host.messages.takeLast(),
                  question + "目录“全部”：0个下级目录，2个任务\n将清空整个部门，请输入“一项目部”以确认?");
        EXPECT_EQ(calls(), "delete all | list | save 全部 in  | list");
        EXPECT_EQ(outline(model), "全部");
        EXPECT_EQ(current(model), "全部");
        EXPECT_EQ(model.GetCurrentNode()->id(), "given");
    });
}

TEST_F(MainWindow, MovesPastAnOpenCatalog) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        window.click(window.text("土建(7)"));
        window.key(Qt::Key_Right);
        window.click(window.text("机电(5)"));
        const auto shows = [&](const char* expected) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return rows(window) == expected; }, 3000)) << rows(window);
            EXPECT_EQ(current(model), "机电");
            const QQuickItem* row = window.text("机电(5)");
            EXPECT_TRUE(row && row->parentItem()->property("color") == QColor("#3399ff"));
        };
        shows(" 全部 土建(7) 基础(4) 主体(0) 机电(5)");
        for (int round = 0; round < 2; ++round) {
            window.click(window.button("上移"));
            EXPECT_EQ(calls(), "move mep 0");
            shows(" 全部 机电(5) 土建(7) 基础(4) 主体(0)");
            window.click(window.button("下移"));
            EXPECT_EQ(calls(), "move mep 1");
            shows(" 全部 土建(7) 基础(4) 主体(0) 机电(5)");
        }
        host.manager.refused = L"move";
        window.click(window.button("上移"));
        EXPECT_EQ(outline(model), kFilled);
        host.manager.refused.clear();
        // And the open one past its neighbour.
        window.click(window.text("土建(7)"));
        window.click(window.button("下移"));
        window.click(window.text("机电(5)"));
        shows(" 全部 机电(5) 土建(7) 基础(4) 主体(0)");
        window.click(window.text("基础(4)"));
        EXPECT_EQ(current(model), "基础");
    });
}

TEST_F(MainWindow, ContextMenuSelectsAndActs) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        window.click(window.text("土建(7)"), Qt::RightButton);
        EXPECT_EQ(current(model), "土建");
        window.click(window.text("下移"));
        EXPECT_EQ(calls(), "move civil 1");
        window.click(window.text("机电(5)"), Qt::RightButton);
        window.click(window.text("重命名"));
        EXPECT_EQ(field(window), "机电") << "the pop-up keeps the keyboard when the menu goes";
        window.key(Qt::Key_Escape);
        EXPECT_FALSE(window.text("  文件夹重命名"));
        window.key(Qt::Key_Menu);
        window.click(window.text("上移"));
        EXPECT_EQ(calls(), "move mep 0");
        window.key(Qt::Key_Down);
        EXPECT_EQ(current(model), "土建") << "the tree has the keyboard again";
    });
}

TEST_F(MainWindow, FollowsTheRights) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        const auto* tasks = taskList(window);
        EXPECT_TRUE(model.newBuildEnable() && model.nodeOperEnable() && model.editAuth() && model.delBtnEnable());
        EXPECT_TRUE(tasks->newTaskEnable() && tasks->operBtnEnable() && tasks->delBtnEnable());
        EXPECT_TRUE(window.button("新建")->isEnabled());
    });
    host.rights.granted.clear();
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        const auto* tasks = taskList(window);
        EXPECT_FALSE(tasks->newTaskEnable() || tasks->operBtnEnable() || tasks->delBtnEnable());
        for (const char* button : {"新建", "重命名", "删除", "上移", "下移"})
            EXPECT_FALSE(window.button(button)->isEnabled()) << button;
        for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete})
            window.key(key);
        EXPECT_FALSE(window.text("确定"));
        EXPECT_TRUE(host.messages.isEmpty());

        window.click(window.text("土建(7)"), Qt::RightButton);
        EXPECT_FALSE(window.text("重命名")->isEnabled());
        window.click(window.text("新建"));  // enabled all the same: the service decides
        host.manager.refused = L"save";
        window.click(window.text("确定"));
        EXPECT_EQ(calls(), "save 新建文件夹 in civil");
        EXPECT_EQ(outline(model), kFilled);
    });
    host.rights.granted = {CAuthCodeTool::GetAuthCode(CAuthCodeTool::kEditTasks)};
    run([&](ModalWindow& window, CatalogTreeModel&) {
        const auto* tasks = taskList(window);
        EXPECT_TRUE(tasks->newTaskEnable() && tasks->operBtnEnable());
        EXPECT_FALSE(tasks->delBtnEnable() || window.button("重命名")->isEnabled());
    });
}

TEST_F(MainWindow, MissingPartsOfTheHostLeaveTheTreeAsItIs) {
    host.core.managers.erase(BASECORE::NAMES::kRights);
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        EXPECT_TRUE(model.nodeOperEnable()) << "without rights everything is granted";
        BIMScrollBar::KnSbInterface::Install(nullptr);
        window.click(window.text("土建(7)"));
        window.key(Qt::Key_Delete);
        EXPECT_EQ(calls(), "");
        host.core.managers.clear();
        window.key(Qt::Key_Delete);
        window.click(window.button("上移"));
        window.click(window.button("新建"));
        window.click(window.text("确定"));
        EXPECT_TRUE(window.text("  文件夹新建"));
        EXPECT_EQ(outline(model), kFilled);
    });
    ModalWindow::expectNone([this] { provider.ShowMainWindow(); });
    BASECORE::FRAME::SetMainBaseCore(nullptr);
    ModalWindow::expectNone([this] { provider.ShowMainWindow(); });
}

TEST_F(MainWindow, FirstCatalogsAreCreatedOnceTheirParentIsKnown) {
    host.manager.catalogs.clear();
    ModalWindow::run([this] { provider.ShowMainWindow(); },
                     [&](ModalWindow& window) {
                         EXPECT_EQ(calls(), "list | save 全部 in  | list | save 技术交底 in given");
                         EXPECT_TRUE(window.text("技术交底(0)"));
                     });
    for (const wchar_t* refused : {L"list", L"save"}) {
        host.manager.catalogs.clear();
        host.manager.refused = refused;
        run([&](ModalWindow& window, CatalogTreeModel& model) {
            EXPECT_EQ(outline(model), "");
            EXPECT_TRUE(window.text("未能读取：没有权限"));
            window.key(Qt::Key_Delete);
            EXPECT_EQ(calls(), "");
            // There is nothing to create anything in.
            for (const char* button : {"新建", "重命名", "删除", "上移", "下移"})
                EXPECT_FALSE(window.button(button)->isEnabled()) << button;
        });
    }
}

TEST_F(MainWindow, WhatCouldNotBeReadComesBackByItself) {
    host.manager.refused = L"list";
    host.manager.unsaid = L"与服务的连接失败";
    host.service.reason = L"服务无法连接";
    host.rights.granted.clear();  // the host could not read them either
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        EXPECT_TRUE(window.text("未能读取：与服务的连接失败"));
        EXPECT_TRUE(support::findItem(window.view()->contentItem(), [](QQuickItem* item) {
            return item->property("text").toString().startsWith("服务无法连接。");
        })) << "the strip";
        EXPECT_FALSE(window.text("共计0条数据"));
        window.click(window.text("重试"));
        EXPECT_EQ(calls(), "list");
        EXPECT_TRUE(window.text("未能读取：与服务的连接失败"));
        host.manager.refused = L"page";  // the next to fail
        host.rights.granted = {CAuthCodeTool::GetAuthCode(CAuthCodeTool::kEditCatalogs)};
        host.service.become({});
        EXPECT_EQ(outline(model), kFilled);
        EXPECT_EQ(current(model), "全部");
        EXPECT_TRUE(window.button("重命名")->isEnabled());
    });
    EXPECT_TRUE(host.messages.isEmpty()) << "nobody was asked for anything";
}

TEST_F(MainWindow, AnotherReadingKeepsWhatTheUserHas) {
    for (int i = 0; i < 60; ++i)
        host.manager.catalogs.push_back({L"n" + std::to_wstring(i), L"分部" + std::to_wstring(i), L"civil", 0, i});
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        auto* scrolled = window.find("initialExpandAll", false)->property("flickableItem").value<QQuickItem*>();
        window.click(window.text("土建(7)"));
        window.key(Qt::Key_Right);
        window.key(Qt::Key_Down);
        const_cast<TaskManagerViewModel*>(taskList(window))->setSearchTaskStatus(2);
        ModalWindow::settle();
        scrolled->setProperty("contentY", 240);
        ModalWindow::settle();
        host.manager.catalogs[2].name = L"安装";
        window.key(Qt::Key_F5);
        EXPECT_EQ(calls().substr(0, 4), "list");
        EXPECT_EQ(current(model), "基础");
        EXPECT_EQ(taskList(window)->searchTaskStatus(), 2);
        EXPECT_EQ(scrolled->property("contentY"), 240);
        EXPECT_TRUE(window.text("分部9(0)")) << "what was open";
        EXPECT_NE(outline(model).find("安装(5)"), std::string::npos);

        host.manager.refused = L"list";
        window.click(window.button("刷新"));
        EXPECT_TRUE(window.text("分部9(0)")) << "a failure takes nothing away";
        EXPECT_TRUE(window.text("未能读取：没有权限"));

        window.click(window.text("分部9(0)"));
        // While a question is open nothing is read: the row that it is about must not go.
        calls();
        BASEUI::SetMessageBoxHandler([&](const std::wstring&, QWidget*, BASEUI::MessageButtons) {
            host.manager.refused.clear();
            host.service.become({});
            EXPECT_EQ(calls(), "");
            return BASEUI::MessageResult::Cancel;
        });
        window.key(Qt::Key_Delete);
        EXPECT_EQ(calls(), "list");
        ModalWindow::settle();
        EXPECT_FALSE(window.text("未能读取：没有权限"));
    });
}

TEST_F(MainWindow, ANameThatGotNoAnswerStaysToBeTriedAgain) {
    run([&](ModalWindow& window, CatalogTreeModel& model) {
        window.click(window.text("土建(7)"));
        host.manager.unsaid = L"服务没有按时应答";
        for (const auto& [key, call, name] :
             {std::tuple(Qt::Key_Insert, L"save", "装修"), {Qt::Key_F2, L"rename", "土木"}}) {
            host.manager.refused = call;
            window.key(key);
            window.key(Qt::Key_Delete);
            window.compose("z", name);
            window.key(Qt::Key_Return);
            EXPECT_TRUE(window.text("未完成：服务没有按时应答")) << name;
            EXPECT_EQ(field(window), name);
            host.manager.refused.clear();
            window.click(window.text("确定"));
            EXPECT_FALSE(window.text("确定"));
        }
        EXPECT_EQ(outline(model), "全部[土木(7)[基础(4) 主体(0) 装修(0)] 机电(5)]");
        for (const auto& [button, call] : {std::pair("上移", L"move"), {"删除", L"delete"}}) {
            host.manager.refused = call;
            window.click(window.button(button));
            EXPECT_TRUE(host.messages.takeLast().endsWith("未完成：服务没有按时应答")) << button;
        }
        EXPECT_EQ(host.messages.size(), 1) << "the question";
    });
}

TEST_F(MainWindow, IsDraggedAndMaximisedByItsTitle) {
    run([&](ModalWindow& window, CatalogTreeModel&) {
        const QPoint before = window.dialog()->pos();
        const QPoint press = window.text("  交底管理")->mapToScene({20, 5}).toPoint();
        const QPoint start = window.view()->mapToGlobal(press);
        QCursor::setPos(start);
        QTest::mousePress(window.view(), Qt::LeftButton, {}, press);
        QCursor::setPos(start + QPoint(30, 40));
        QTest::mouseMove(window.view(), window.view()->mapFromGlobal(start + QPoint(30, 40)));
        // A window manager takes its time to tell the dialog where it is.
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.dialog()->pos() - before == QPoint(30, 40); }));
        QTest::mouseRelease(window.view(), Qt::LeftButton, {}, window.view()->mapFromGlobal(QCursor::pos()));
        for (const bool isMaximised : {true, false}) {
            QTest::mouseDClick(window.view(), Qt::LeftButton, {}, press);
            ModalWindow::settle();
            EXPECT_EQ(window.dialog()->isMaximized(), isMaximised);
            EXPECT_EQ(window.view()->rootObject()->width(), window.view()->width());
        }
    });
}
