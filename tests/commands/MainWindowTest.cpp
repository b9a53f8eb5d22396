#include <QMetaMethod>

#include "tests/commands/TaskWindow.h"

namespace {

class MainWindow : public TaskWindow {
protected:
    MainWindow()
        : TaskWindow(0, {1000, 700},
                     {CAuthCodeTool::kEditCatalogs, CAuthCodeTool::kEditTasks, CAuthCodeTool::kDeleteTasks}) {}

    void run(const ModalWindow::Steps& steps) {
        TaskWindow::run([&](ModalWindow& window) {
            service.calls.clear();
            steps(window);
        });
    }
    static std::string outline(const TreeNode* node) {
        QStringList names;
        for (TreeNode* child : node->children()) {
            const QString below = QString::fromStdString(outline(child));
            names << static_cast<CatalogTreeNode*>(child)->nodeDisName() + (below.isEmpty() ? "" : "[" + below + "]");
        }
        return names.join(' ').toStdString();
    }
    std::string outline() const { return outline(tree->nodeOf({})); }

    /// The catalogs as the tree shows them, from top to bottom.
    static std::string rows(const ModalWindow& window) {
        QMap<qreal, QString> found;
        window.find([&](QQuickItem* item) {
            if (item->inherits("QQuickText") && item->parentItem()->property("whiteWhenSelected").isValid())
                found[item->mapToScene({}).y()] = item->property("text").toString();
            return false;
        });
        return QStringList(found.values()).join(' ').toStdString();
    }
    static QString field(const ModalWindow& window) {
        const QQuickItem* item = window.view()->activeFocusItem();
        return item ? item->property("text").toString() : QString();
    }
    /// Renames what is current and returns the messages.
    std::string rename(ModalWindow& window, const QString& name) {
        host.messages.clear();
        window.key(Qt::Key_F2).key(Qt::Key_Delete).type(name).key(Qt::Key_Return);
        return host.told();
    }
    /// A button under the tree; the list has some of the same names.
    static QQuickItem* button(const ModalWindow& window, const char* name) {
        return support::findItem(window.find("initialExpandAll", false)->parentItem(),
                                 support::has("tooltipText", name));
    }
    static QStringList enabledButtons(const ModalWindow& window) {
        QStringList enabled;
        for (const char* name : {"新建", "重命名", "删除", "上移", "下移"})
            if (button(window, name)->isEnabled())
                enabled << name;
        return enabled;
    }
};

constexpr char kFilled[] = "全部[土建(7)[基础(4) 主体(0)] 机电(5)]";

}  // namespace

TEST_F(MainWindow, OpensAtTheTopCatalogInTheGivenSize) {
    run([&](ModalWindow& window) {
        EXPECT_EQ(outline(), kFilled);
        EXPECT_EQ(catalog(), "全部");
        EXPECT_EQ(window.dialog()->minimumSize(), QSize(800, 560));
        EXPECT_EQ(window.dialog()->parentWidget(), &host.window);
        EXPECT_EQ(window.dialog()->windowTitle(), "交底管理");
        EXPECT_EQ(window.wrong({"全部", "土建(7)", "机电(5)", "!基础(4)"}), "") << "only the top is open";
        provider.slotCatalogOption("x", "new");
        provider.slotCatalogOption({}, "new");
        provider.ShowMainWindow();  // a second run of the command shows the same window
        EXPECT_EQ(service.takeCalls(), "");

        window.click("机电(5)");
        EXPECT_EQ(catalog(), "机电");
        EXPECT_EQ(list->catalogId(), "mep");
        window.key(Qt::Key_Up);
        EXPECT_EQ(catalog(), "土建");
        window.key(Qt::Key_Right);
        EXPECT_TRUE(window.text("基础(4)"));
    });
    QWidget other;
    service.SetParentWidget(&other);
    run([&](ModalWindow& window) { EXPECT_EQ(window.dialog()->parentWidget(), &other); });
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
    run([&](ModalWindow& window) {
        window.click("土建(7)").click(button(window, "新建"));
        EXPECT_TRUE(window.text("  文件夹新建"));
        EXPECT_EQ(field(window), "新建文件夹");
        window.compose("jichu", "装修");
        EXPECT_EQ(field(window), "装修") << "the proposal was selected and gives way";
        window.click("确定");
        EXPECT_EQ(window.wrong({"!  文件夹新建", "装修(0)"}), "") << "the catalog was opened";
        EXPECT_EQ(outline(), "全部[土建(7)[基础(4) 主体(0) 装修(0)] 机电(5)]");
        EXPECT_EQ(catalog(), "土建");
        const auto* added = static_cast<CatalogTreeNode*>(tree->nodeOf(tree->index(2, 0, tree->currentIndex())));
        EXPECT_EQ(added->id().size(), 36);

        service.takeCalls();
        window.key(Qt::Key_Insert).type("a").key(Qt::Key_Escape);
        EXPECT_EQ(service.takeCalls(), "");
        window.key(Qt::Key_Insert).type("a?").key(Qt::Key_Return);  // no check on create
        EXPECT_EQ(service.takeCalls(), "save a? in civil | log 新建交底目录 技术→交底管理→新建目录");
    });
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(MainWindow, ARefusedNameStaysInThePopUp) {
    run([&](ModalWindow& window) {
        window.click("土建(7)").key(Qt::Key_F2);
        EXPECT_EQ(field(window), "土建");
        window.type("土木").click("确定");
        EXPECT_EQ(service.takeCalls(), "rename civil to 土木 | log 修改交底目录 技术→交底管理→修改目录");
        EXPECT_TRUE(window.text("土木(7)"));

        // An accepted name went before; the next ones are refused all the same.
        service.refused = L"rename";
        window.key(Qt::Key_F2).type("机电").click("确定");
        EXPECT_TRUE(window.text("  文件夹重命名"));
        window.click("机电").key(Qt::Key_A, Qt::ControlModifier).type("a/b").click("确定");
        EXPECT_EQ(host.told(), "文件夹名称不能包含\\/:*?\"<>|");
        EXPECT_TRUE(window.text("a/b"));
        window.click("取消");

        service.refused = L"save";
        window.click(button(window, "新建")).type("x").click("确定");
        EXPECT_TRUE(window.text("  文件夹新建"));
        window.click("x").key(Qt::Key_Return);  // Enter closes in any case
        EXPECT_FALSE(window.text("  文件夹新建"));
        EXPECT_EQ(outline(), "全部[土木(7)[基础(4) 主体(0)] 机电(5)]");
    });
}

TEST_F(MainWindow, ChecksNamesWithTheFirstFailingRule) {
    run([&](ModalWindow& window) {
        window.click("机电(5)");
        const std::pair<QString, const char*> names[] = {{"  ", "文件夹名称不能为空"},
                                                         {QString(129, 'x') + "?", "文件夹名称不能包含\\/:*?\"<>|"},
                                                         {QString(129, 'x'), "文件夹名称长度需1-50之间"},
                                                         {"全部", "全部是一个特殊的字段名"},
                                                         {QString(128, 'x'), ""}};
        for (const auto& [name, message] : names) {
            EXPECT_EQ(service.takeCalls(), "");
            EXPECT_EQ(outline(), kFilled);
            EXPECT_EQ(rename(window, name), message);
        }
        EXPECT_NE(service.takeCalls(), "");
        window.key(Qt::Key_Home);
        EXPECT_EQ(rename(window, "?"), "");
        EXPECT_EQ(service.takeCalls(), "");
        EXPECT_EQ(catalog(), "全部");
    });
}

TEST_F(MainWindow, DeletesAfterAskingAndSelectsTheNeighbour) {
    run([&](ModalWindow& window) {
        const std::string question = "删除后，此目录下的交底任务无法恢复，是否确定删除？\n";
        host.answer = BASEUI::MessageResult::Cancel;
        window.click("土建(7)").click(button(window, "删除"));
        EXPECT_EQ(host.told(), question + "目录“土建”：2个下级目录，7个任务?");
        EXPECT_TRUE(host.progress.isEmpty());
        EXPECT_EQ(service.takeCalls(), "");

        host.answer = BASEUI::MessageResult::Ok;
        service.refused = L"delete";
        window.key(Qt::Key_Delete);
        EXPECT_EQ(host.progress, QStringList({"处理状态/处理中，请稍后...", "closed"}));
        EXPECT_EQ(service.takeCalls(), "delete civil");
        EXPECT_EQ(outline(), kFilled);

        service.refused.clear();
        window.click(button(window, "删除"));
        EXPECT_EQ(service.takeCalls(), "delete civil | log 删除交底目录 技术→交底管理→删除目录");
        EXPECT_EQ(outline() + " " + catalog(), "全部[机电(5)] 机电");
        window.key(Qt::Key_Delete);
        EXPECT_EQ(catalog(), "全部");
        EXPECT_FALSE(window.text("机电(5)"));

        // Without the top there is nothing, until the service gives a new one.
        service.catalogs.resize(1);
        service.calls.clear();
        host.messages.clear();
        window.key(Qt::Key_Delete);
        EXPECT_EQ(host.told(), question + "目录“全部”：0个下级目录，2个任务\n将清空整个部门，请输入“一项目部”以确认?");
        EXPECT_EQ(service.takeCalls(), "delete all | list | save 全部 in  | list");
        EXPECT_EQ(outline() + " " + catalog(), "全部 全部");
        EXPECT_EQ(tree->GetCurrentNode()->id(), "given");
    });
}

TEST_F(MainWindow, MovesPastAnOpenCatalog) {
    run([&](ModalWindow& window) {
        window.click("土建(7)").key(Qt::Key_Right).click("机电(5)");
        const auto move = [&](const char* direction, const char* call, const char* shown, const char* next = nullptr) {
            window.click(button(window, direction));
            EXPECT_EQ(service.takeCalls(), call);
            if (next)
                window.click(next);
            EXPECT_TRUE(QTest::qWaitFor([&] { return rows(window) == shown; }, 3000)) << rows(window);
            EXPECT_EQ(catalog(), "机电");
            const QQuickItem* row = window.text("机电(5)");
            EXPECT_TRUE(row && row->parentItem()->property("color") == QColor("#3399ff"));
        };
        for (int round = 0; round < 2; ++round) {
            move("上移", "move mep 0", "全部 机电(5) 土建(7) 基础(4) 主体(0)");
            move("下移", "move mep 1", "全部 土建(7) 基础(4) 主体(0) 机电(5)");
        }
        service.refused = L"move";
        move("上移", "move mep 0", "全部 土建(7) 基础(4) 主体(0) 机电(5)");
        service.refused.clear();
        window.click("土建(7)");  // and the open one past its neighbour
        move("下移", "move civil 1", "全部 机电(5) 土建(7) 基础(4) 主体(0)", "机电(5)");
        window.click("基础(4)");
        EXPECT_EQ(catalog(), "基础");
    });
}

TEST_F(MainWindow, ContextMenuSelectsAndActs) {
    run([&](ModalWindow& window) {
        window.click("土建(7)", Qt::RightButton);
        EXPECT_EQ(catalog(), "土建");
        window.click("下移");
        EXPECT_EQ(service.takeCalls(), "move civil 1");
        window.click("机电(5)", Qt::RightButton).click("重命名");
        EXPECT_EQ(field(window), "机电") << "the pop-up keeps the keyboard when the menu goes";
        window.key(Qt::Key_Escape);
        EXPECT_FALSE(window.text("  文件夹重命名"));
        window.key(Qt::Key_Menu).click("上移");
        EXPECT_EQ(service.takeCalls(), "move mep 0");
        window.key(Qt::Key_Down);
        EXPECT_EQ(catalog(), "土建") << "the tree has the keyboard again";
    });
}

TEST_F(MainWindow, FollowsTheRights) {
    run([&](ModalWindow& window) {
        EXPECT_TRUE(tree->newBuildEnable() && tree->nodeOperEnable() && tree->editAuth() && tree->delBtnEnable());
        EXPECT_TRUE(list->newTaskEnable() && list->operBtnEnable() && list->delBtnEnable());
        EXPECT_TRUE(button(window, "新建")->isEnabled());
    });
    host.grant({});
    run([&](ModalWindow& window) {
        EXPECT_FALSE(list->newTaskEnable() || list->operBtnEnable() || list->delBtnEnable());
        EXPECT_EQ(enabledButtons(window), QStringList());
        window.key(Qt::Key_Insert).key(Qt::Key_F2).key(Qt::Key_Delete);
        EXPECT_FALSE(window.text("确定"));
        EXPECT_TRUE(host.messages.isEmpty());

        window.click("土建(7)", Qt::RightButton);
        EXPECT_FALSE(window.text("重命名")->isEnabled());
        service.refused = L"save";
        window.click("新建").click("确定");  // enabled all the same: the service decides
        EXPECT_EQ(service.takeCalls(), "save 新建文件夹 in civil");
        EXPECT_EQ(outline(), kFilled);
    });
    host.grant({CAuthCodeTool::kEditTasks});
    run([&](ModalWindow& window) {
        EXPECT_TRUE(list->newTaskEnable() && list->operBtnEnable());
        EXPECT_FALSE(list->delBtnEnable() || button(window, "重命名")->isEnabled());
    });
}

TEST_F(MainWindow, MissingPartsOfTheHostLeaveTheTreeAsItIs) {
    host.core.managers.erase(BASECORE::NAMES::kRights);
    run([&](ModalWindow& window) {
        EXPECT_TRUE(tree->nodeOperEnable()) << "without rights everything is granted";
        BIMScrollBar::KnSbInterface::Install(nullptr);
        window.click("土建(7)").key(Qt::Key_Delete);
        EXPECT_EQ(service.takeCalls(), "");
        host.core.managers.clear();
        window.key(Qt::Key_Delete).click(button(window, "上移")).click(button(window, "新建")).click("确定");
        EXPECT_TRUE(window.text("  文件夹新建"));
        EXPECT_EQ(outline(), kFilled);
    });
    ModalWindow::expectNone([this] { provider.ShowMainWindow(); });
    BASECORE::FRAME::SetMainBaseCore(nullptr);
    ModalWindow::expectNone([this] { provider.ShowMainWindow(); });
}

TEST_F(MainWindow, FirstCatalogsAreCreatedOnceTheirParentIsKnown) {
    service.catalogs.clear();
    TaskWindow::run([&](ModalWindow& window) {
        EXPECT_EQ(service.takeCalls(), "list | save 全部 in  | list | save 技术交底 in given");
        EXPECT_TRUE(window.text("技术交底(0)"));
    });
    for (const wchar_t* refused : {L"list", L"save"}) {
        service.catalogs.clear();
        service.refused = refused;
        run([&](ModalWindow& window) {
            EXPECT_EQ(outline(), "");
            EXPECT_TRUE(window.text("未能读取：没有权限"));
            window.key(Qt::Key_Delete);
            EXPECT_EQ(service.takeCalls(), "");
            EXPECT_EQ(enabledButtons(window), QStringList()) << "there is nothing to create anything in";
        });
    }
}

TEST_F(MainWindow, WhatCouldNotBeReadComesBackByItself) {
    service.refused = L"list";
    service.unsaid = L"与服务的连接失败";
    host.service.reason = L"服务无法连接";
    host.grant({});  // the host could not read them either
    run([&](ModalWindow& window) {
        EXPECT_EQ(window.wrong({"未能读取：与服务的连接失败", "!共计0条数据"}), "");
        EXPECT_TRUE(window.find([](QQuickItem* item) {
            return item->property("text").toString().startsWith("服务无法连接。");
        })) << "the strip";
        window.click("重试");
        EXPECT_EQ(service.takeCalls(), "list");
        EXPECT_TRUE(window.text("未能读取：与服务的连接失败"));
        service.refused = L"page";  // the next to fail
        host.grant({CAuthCodeTool::kEditCatalogs});
        host.service.become({});
        EXPECT_EQ(outline(), kFilled);
        EXPECT_EQ(catalog(), "全部");
        EXPECT_TRUE(button(window, "重命名")->isEnabled());
    });
    EXPECT_TRUE(host.messages.isEmpty()) << "nobody was asked for anything";
}

TEST_F(MainWindow, AnotherReadingKeepsWhatTheUserHas) {
    for (int i = 0; i < 60; ++i)
        service.catalogs.push_back({L"n" + std::to_wstring(i), L"分部" + std::to_wstring(i), L"civil", 0, i});
    run([&](ModalWindow& window) {
        auto* scrolled = window.find("initialExpandAll", false)->property("flickableItem").value<QQuickItem*>();
        window.click("土建(7)").key(Qt::Key_Right).key(Qt::Key_Down);
        list->setSearchTaskStatus(2);
        settle();
        scrolled->setProperty("contentY", 240);
        window.settle();
        service.catalogs[2].name = L"安装";
        service.calls.clear();
        window.key(Qt::Key_F5);
        EXPECT_EQ(service.takeCalls(), "list");
        EXPECT_EQ(catalog(), "基础");
        EXPECT_EQ(list->searchTaskStatus(), 2);
        EXPECT_EQ(scrolled->property("contentY"), 240);
        EXPECT_TRUE(window.text("分部9(0)")) << "what was open";
        EXPECT_NE(outline().find("安装(5)"), std::string::npos);

        service.refused = L"list";
        window.press("刷新");
        EXPECT_EQ(window.wrong({"分部9(0)", "未能读取：没有权限"}), "") << "a failure takes nothing away";

        // While a question is open nothing is read: the row that it is about must not go.
        window.click("分部9(0)");
        service.calls.clear();
        BASEUI::SetMessageBoxHandler([&](const std::wstring&, QWidget*, BASEUI::MessageButtons) {
            service.refused.clear();
            host.service.become({});
            EXPECT_EQ(service.takeCalls(), "");
            return BASEUI::MessageResult::Cancel;
        });
        window.key(Qt::Key_Delete);
        EXPECT_EQ(service.takeCalls(), "list");
        EXPECT_FALSE(window.text("未能读取：没有权限"));
    });
}

TEST_F(MainWindow, ANameThatGotNoAnswerStaysToBeTriedAgain) {
    run([&](ModalWindow& window) {
        window.click("土建(7)");
        service.unsaid = L"服务没有按时应答";
        for (const auto& [key, call, name] :
             {std::tuple(Qt::Key_Insert, L"save", "装修"), {Qt::Key_F2, L"rename", "土木"}}) {
            service.refused = call;
            window.key(key).key(Qt::Key_Delete).compose("z", name).key(Qt::Key_Return);
            EXPECT_TRUE(window.text("未完成：服务没有按时应答")) << name;
            EXPECT_EQ(field(window), name);
            service.refused.clear();
            window.click("确定");
            EXPECT_FALSE(window.text("确定"));
        }
        EXPECT_EQ(outline(), "全部[土木(7)[基础(4) 主体(0) 装修(0)] 机电(5)]");
        for (const auto& [name, call] : {std::pair("上移", L"move"), {"删除", L"delete"}}) {
            service.refused = call;
            window.click(button(window, name));
            EXPECT_TRUE(host.messages.takeLast().endsWith("未完成：服务没有按时应答")) << name;
        }
        EXPECT_EQ(host.messages.size(), 1) << "the question";
    });
}

TEST_F(MainWindow, IsDraggedAndMaximisedByItsTitle) {
    run([&](ModalWindow& window) {
        const QPoint before = window.dialog()->pos();
        const QPoint press = window.text("  交底管理")->mapToScene({20, 5}).toPoint();
        const QPoint end = window.view()->mapToGlobal(press) + QPoint(30, 40);
        QCursor::setPos(window.view()->mapToGlobal(press));
        QTest::mousePress(window.view(), Qt::LeftButton, {}, press);
        QCursor::setPos(end);
        QTest::mouseMove(window.view(), window.view()->mapFromGlobal(end));
        // A window manager takes its time to tell the dialog where it is.
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.dialog()->pos() - before == QPoint(30, 40); }));
        QTest::mouseRelease(window.view(), Qt::LeftButton, {}, window.view()->mapFromGlobal(end));
        for (const bool isMaximised : {true, false}) {
            QTest::mouseDClick(window.view(), Qt::LeftButton, {}, press);
            window.settle();
            EXPECT_EQ(window.dialog()->isMaximized(), isMaximised);
            EXPECT_EQ(window.view()->rootObject()->width(), window.view()->width());
        }
    });
}
