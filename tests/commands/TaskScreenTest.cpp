#include <ctime>

#include "tests/commands/TaskWindow.h"

namespace {

class TaskScreen : public TaskWindow {
protected:
    TaskScreen() : TaskWindow(31, {2000, 1000}, {CAuthCodeTool::kEditTasks, CAuthCodeTool::kDeleteTasks}) {
        service.tasks[1].isPublish = 1;
    }

    /// The calendar cell of that column in the row of the task.
    static QQuickItem* dateCell(const ModalWindow& window, const QString& taskId, const QString& column) {
        return support::findItem(table(window), [&](QQuickItem* item) {
            const auto* task = qobject_cast<TaskModel*>(item->property("task").value<QObject*>());
            return task && task->id() == taskId && item->property("column") == column;
        });
    }
    static QQuickItem* button(const ModalWindow& window, const QString& toolTip) {
        return support::findItem(table(window)->parentItem(), support::has("tooltipText", toolTip));
    }
    /// The window of the list that a combo box has opened.
    static QWindow* openList() {
        const QWindowList windows = QGuiApplication::allWindows();
        for (QWindow* window : windows)
            if (window->isVisible() && window->inherits("QQuickPopupWindow1"))
                return window;
        return nullptr;
    }
    /// Replaces the text of the field and confirms it.
    void enter(ModalWindow& window, QQuickItem* field, const QString& text) {
        window.fill(field, text).key(Qt::Key_Return);
        settle();
        settle();
    }
};

}  // namespace

TEST_F(TaskScreen, EveryControlDoesItsOwn) {
    run([&](ModalWindow& window) {
        QQuickItem* dateKind = window.find("currentText", "实际交底时间");
        QQuickItem* status = window.find("currentText", "全部");
        QQuickItem* page = window.find("objectName", "page");
        QQuickItem* search = window.find("placeholderText", "请输入名称进行搜索");
        const auto dateField = [&](bool isEnd) {  // the start stands to the left
            QList<QQuickItem*> fields;
            window.find([&](QQuickItem* item) {
                if (item->property("day").isValid())
                    fields << item;
                return false;
            });
            EXPECT_EQ(fields.size(), 2);
            const bool isFirst = fields[0]->mapToScene({}).x() < fields[1]->mapToScene({}).x();
            return fields[isFirst == isEnd ? 1 : 0];
        };
        const auto choose = [&](QQuickItem* combo) { window.focus(combo).key(Qt::Key_Down); };
        const auto searchByIcon = [&] {
            window.click(search).type("y");
            window.click(support::findItem(search, support::has("iconSource", QUrl("qrc:/ui/Images/search.png"))));
        };
        const std::string now = QDate::currentDate().toString("MM-dd").toStdString();
        EXPECT_FALSE(dateKind->isEnabled());
        EXPECT_TRUE(window.text("共计31条数据"));
        const std::tuple<const char*, std::function<void()>, std::string> steps[] = {
            {"last page", [&] { window.click(button(window, "末页")); }, "-1 -1 -/-  p3x15"},
            {"page 0", [&] { enter(window, page, "0"); }, "-1 -1 -/-  p1x15"},
            {"page 99", [&] { enter(window, page, "99"); }, "-1 -1 -/-  p3x15"},
            {"不限", [&] { window.click("不限"); }, "-1 1 " + now + "/" + now + "  p3x15"},
            {"kind of date", [&] { choose(dateKind); }, "-1 2 " + now + "/" + now + "  p3x15"},
            {"start", [&] { enter(window, dateField(false), "2024-02-28"); }, "-1 2 02-28/" + now + "  p3x15"},
            {"end", [&] { enter(window, dateField(true), "2024-03-02"); }, "-1 2 02-28/03-02  p3x15"},
            {"no date", [&] { enter(window, dateField(true), "2024-02-30"); }, "-1 2 02-28/03-02  p3x15"},
            {"Enter in the search", [&] { enter(window, search, "x"); }, "-1 2 02-28/03-02 x p3x15"},
            {"the search's icon", searchByIcon, "-1 2 02-28/03-02 xy p1x15"},
            {"next", [&] { window.click(button(window, "下一页")); }, "-1 2 02-28/03-02 xy p2x15"},
            {"status", [&] { choose(status); }, "1 2 02-28/03-02 xy p1x15"},
            {"page size", [&] { choose(window.find("objectName", "pageSizes")); }, "1 2 02-28/03-02 xy p1x20"},
            {"today", [&] { window.press("常用日期范围").click("今天"); }, "1 2 " + now + "/" + now + " xy p1x20"}};
        for (const auto& [what, act, expected] : steps) {
            act();
            settle();
            EXPECT_EQ(describe(service.queries.back()), expected) << what;
        }
        EXPECT_EQ(page->property("text"), "1");
        ASSERT_EQ(host.messages.size(), 1);
        EXPECT_TRUE(host.messages.takeLast().startsWith("“2024-02-30”不是日期"));

        service.queries.clear();
        window.click(button(window, "刷新"));
        settle();
        EXPECT_EQ(service.queries.size(), 1u);
        task(2)->setSelected(true);
        for (const auto& [opener, shown] : {std::pair(button(window, "新建"), "任务名称："),
                                            {window.text("提醒"), "提醒已过期的未交底任务"},
                                            {button(window, "移动"), "任务“任务2”"}})
            ModalWindow::run([&, &item = opener] { window.click(item); },
                             [&text = shown](ModalWindow& dialog) { EXPECT_EQ(dialog.wrong({text}), ""); });
        window.click(button(window, "导出"));
        EXPECT_EQ(host.told(), "该功能将在后续版本提供");

        list->setCatalogId("mep");
        settle();
        EXPECT_EQ(status->property("currentIndex"), 0);
        EXPECT_FALSE(dateKind->isEnabled());
    });
}

TEST_F(TaskScreen, DaysStayTheSameWestOfGreenwich) {
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", "America/New_York");
    tzset();
    const auto leapDay = QDate(2024, 2, 29).startOfDay().toMSecsSinceEpoch();
    service.tasks[0].planDisclosureDateMills = leapDay;
    run([&](ModalWindow& window) {
        EXPECT_EQ(dateCell(window, "t0", "计划交底日期")->property("value"), "2024-02-29");
        window.click("不限");
        QQuickItem* start = window.find("day", QDate::currentDate().toString(Qt::ISODate));
        ASSERT_TRUE(start);
        enter(window, start, "2024-02-29");
        EXPECT_EQ(start->property("text"), "2024-02-29");
        EXPECT_EQ(service.queries.back().startDateMills, leapDay);
        list->onEditDate("2024-03-01", "计划交底日期", task(0));
        EXPECT_EQ(task(0)->property("plan_show"), "2024-03-01");
    });
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
}

TEST_F(TaskScreen, CheckedRowsAreDeleted) {
    run([&](ModalWindow& window) {
        QQuickItem* remove = button(window, "删除");
        EXPECT_FALSE(remove->isEnabled());
        task(2)->setSelected(true);
        task(4)->setSelected(true);
        list->nextPage();
        settle();
        EXPECT_EQ(window.wrong({"已选 2 条", "任务15", "16"}), "") << "rows are numbered through";
        list->prevPage();
        settle();
        window.click(remove);
        settle();
        EXPECT_EQ(service.tasks.size(), 29u);
        EXPECT_FALSE(window.text("任务2"));
        EXPECT_FALSE(remove->isEnabled());
        window.click(window.find("objectName", "selectAll")).click(remove);
        settle();
        EXPECT_EQ(service.tasks.size(), 14u);
        EXPECT_TRUE(window.text("任务30"));
    });
}

TEST_F(TaskScreen, ADateCellOpensByKeyAndShowsOnlyWhatIsStored) {
    run([&](ModalWindow& window) {
        QQuickItem* date = dateCell(window, "t0", "计划交底日期");
        ASSERT_TRUE(date);
        const QString today = "day" + QDate::currentDate().toString(Qt::ISODate);
        const auto isOpen = [&] { return window.find("objectName", today) != nullptr; };
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            date->forceActiveFocus();
            window.key(key);
            EXPECT_TRUE(QTest::qWaitFor(isOpen));
            window.key(Qt::Key_Escape);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !isOpen(); }));
        }
        service.refused = L"update";
        QMetaObject::invokeMethod(date, "picked", Q_ARG(QString, "2024-03-01"));
        EXPECT_EQ(date->property("value"), "") << "what the service refuses is not shown";
        EXPECT_FALSE(dateCell(window, "t1", "计划交底日期")->property("editable").toBool()) << "it is published";
    });
}

TEST_F(TaskScreen, AnOwnerIsChosenOnPurposeOnly) {
    run([&](ModalWindow& window) {
        const QPoint owner = window.text("张伟(zhangwei)")->mapToScene({5, 5}).toPoint();
        QTest::mouseMove(window.view(), owner);
        window.settle();
        QQuickItem* chooser = window.find("currentText", "张伟(zhangwei)");
        ASSERT_TRUE(chooser);
        QWheelEvent wheel(owner, window.view()->mapToGlobal(owner), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.view(), &wheel);
        EXPECT_TRUE(service.updates.empty()) << "the wheel scrolls, it chooses nobody";
        chooser->forceActiveFocus();
        service.refused = L"update";
        // The list is a window of its own, which a window manager would give the keyboard; this platform may forget to.
        const auto hasKeyboard = [] {
            if (openList() && QGuiApplication::focusWindow() != openList())
                openList()->requestActivate();
            return openList() && QGuiApplication::focusWindow() == openList();
        };
        const auto opens = [&](Qt::Key key) {
            window.key(key);
            return QTest::qWaitFor(hasKeyboard);
        };
        const auto closes = [&](Qt::Key key) {
            return QTest::qWaitFor([&] {
                if (hasKeyboard())
                    QTest::keyPress(openList(), key);
                window.settle();
                return !openList();
            });
        };
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_N}) {
            ASSERT_TRUE(opens(key)) << QKeySequence(key).toString().toStdString();
            ASSERT_TRUE(closes(Qt::Key_Escape));
        }
        EXPECT_TRUE(service.updates.empty()) << "a key in passing chooses nobody";
        ASSERT_TRUE(opens(Qt::Key_Down));
        QTest::keyPress(openList(), Qt::Key_Down);
        ASSERT_TRUE(closes(Qt::Key_Return));
        ASSERT_EQ(service.updates.size(), 1u);
        EXPECT_EQ(service.updates.back().disclosureUserName, L"lina");
        EXPECT_EQ(chooser->property("currentIndex"), 0);
        EXPECT_EQ(task(0)->property("owner"), "张伟(zhangwei)");
    });
}

TEST_F(TaskScreen, ATaskIsRenamed) {
    run([&](ModalWindow& window) {
        const auto rename = [&](const ModalWindow::Steps& steps) {
            ModalWindow::run([&] { window.key(Qt::Key_F2); }, steps);
        };
        window.click("任务0");
        rename([&](ModalWindow& renaming) {
            const QQuickItem* field = renaming.named("任务名称：");
            const auto value = [field] { return field->property("value").toString(); };
            EXPECT_EQ(renaming.dialog()->minimumSize(), QSize(300, 170));
            EXPECT_EQ(value(), "任务0");
            renaming.type("  ").key(Qt::Key_Return);
            EXPECT_EQ(host.told(), "任务名称不能为空");
            EXPECT_EQ(value(), "");
            service.refused = L"update";
            renaming.compose("zhu", " 柱钢筋绑扎\n交底 ").click("确定");
            EXPECT_TRUE(renaming.dialog()->isVisible());
            EXPECT_EQ(value(), "柱钢筋绑扎 交底") << "what the service refuses is kept";
            EXPECT_TRUE(window.text("任务0"));
            service.refused.clear();
            service.tasks[0].remark = L"他人的备注";
            renaming.compose("2", "二").key(Qt::Key_Return);
            EXPECT_FALSE(renaming.dialog()->isVisible());
        });
        EXPECT_EQ(task(0)->name(), "柱钢筋绑扎 交底二");
        settle();
        EXPECT_TRUE(window.text("柱钢筋绑扎 交底二"));
        EXPECT_EQ(service.tasks[0].name, L"柱钢筋绑扎 交底二");
        EXPECT_EQ(service.tasks[0].remark, L"他人的备注") << "after a refusal the task is read again";
        const std::size_t updates = service.updates.size();
        rename([](ModalWindow& renaming) { renaming.key(Qt::Key_Return); });
        EXPECT_EQ(service.updates.size(), updates) << "the same name is not stored";
    });
}

TEST_F(TaskScreen, HandsAndKeysReachTheRowTheyAreOn) {
    const std::string kPublished = "已发布的任务暂不支持编辑";
    run([&](ModalWindow& window) {
        window.doubleClick(window.text("任务1"));
        EXPECT_EQ(host.told(), kPublished);
        ModalWindow::run([&] { window.doubleClick(window.text("任务0")); },
                         [](ModalWindow& renaming) { renaming.key(Qt::Key_Escape); });
        EXPECT_EQ(currentRow(window), 0);
        EXPECT_TRUE(service.updates.empty());
    });
    run([&](ModalWindow& window) {
        table(window)->forceActiveFocus();
        window.key(Qt::Key_Delete).key(Qt::Key_Return);
        EXPECT_EQ(host.told(), "") << "no row is current or checked";
        window.key(Qt::Key_Down).key(Qt::Key_Down).key(Qt::Key_F2);
        EXPECT_EQ(host.told(), kPublished);
        window.key(Qt::Key_Up);
        ModalWindow::run([&] { window.key(Qt::Key_Return); },
                         [](ModalWindow& editor) { EXPECT_TRUE(editor.find("value", "任务0")); });
        window.key(Qt::Key_Space).key(Qt::Key_Delete);
        settle();
        EXPECT_EQ(service.tasks.front().id, L"t1");
        EXPECT_EQ(currentRow(window), 0);
        window.key(Qt::Key_Tab);
        EXPECT_EQ(window.view()->activeFocusItem()->property("text"), "任务1") << "the current row's first cell";
    });
}

TEST_F(TaskScreen, AClickOnARowTakesTheKeyboardFromItsButtons) {
    for (auto& task : service.tasks)
        task.isPublish = 1;
    host.window.resize(2400, 1400);
    run([&](ModalWindow& window) {
        QQuickItem* edit = window.find([](QQuickItem* item) {
            return item->property("task").value<QObject*>() &&
                   item->property("iconSource") == QUrl("qrc:/ui/Images/edit.png");
        });
        ASSERT_TRUE(edit);
        auto* task = edit->property("task").value<TaskModel*>();
        window.click(edit).click(edit);
        EXPECT_EQ(host.messages.size(), 2) << "published tasks are not edited";
        window.click(task->property("name").toString()).key(Qt::Key_Space);
        EXPECT_EQ(host.messages.size(), 2) << "nothing is to be edited";
        EXPECT_TRUE(task->selected());
    });
}

TEST_F(TaskScreen, AnotherReadingKeepsThePlace) {
    host.window.resize(1000, 500);
    run([&](ModalWindow& window) {
        window.click("任务1").key(Qt::Key_End);
        auto* view = table(window)->property("flickableItem").value<QQuickItem*>();
        ASSERT_TRUE(QTest::qWaitFor([view] { return view->property("atYEnd").toBool(); }));
        const qreal top = view->property("contentY").toReal();
        window.key(Qt::Key_Tab);  // into a cell, which goes with its row
        view->setProperty("contentX", 120);
        list->RefreshCurrentTaskInfo(true);
        settle();
        EXPECT_EQ(view->property("contentX"), 120);
        EXPECT_EQ(currentRow(window), 14);
        EXPECT_EQ(view->property("contentY").toReal(), top);
        window.key(Qt::Key_Up);
        EXPECT_EQ(currentRow(window), 13) << "the keyboard stays, too";
        list->nextPage();
        settle();
        EXPECT_EQ(currentRow(window), -1);
        EXPECT_LT(view->property("contentY").toReal(), 0) << "the header is in sight";
        EXPECT_EQ(view->property("contentX"), 0);
    });
}

TEST_F(TaskScreen, WithoutRightsNothingCanBeChanged) {
    host.grant({});
    run([&](ModalWindow& window) {
        task(0)->setSelected(true);
        EXPECT_FALSE(button(window, "删除")->isEnabled());
        EXPECT_FALSE(dateCell(window, "t0", "计划交底日期")->property("editable").toBool());
        window.doubleClick(window.text("任务0")).key(Qt::Key_F2);
        EXPECT_TRUE(host.messages.isEmpty());
    });
}
