#include <ctime>

#include <QDialog>

#include "tests/commands/TaskWindow.h"

using BASETOOLS::CAuthCodeTool;
using support::ModalWindow;

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
        return support::findItem(table(window)->parentItem(),
                                 [&](QQuickItem* item) { return item->property("tooltipText") == toolTip; });
    }
    void doubleClick(const ModalWindow& window, const QQuickItem* item) {
        ASSERT_TRUE(item);
        QTest::mouseMove(window.view(), support::centreOf(const_cast<QQuickItem*>(item)));  // a tool tip goes
        ModalWindow::settle();
        QTest::mouseDClick(window.view(), Qt::LeftButton, {},
                           item->mapToScene({item->width() / 2, item->height() / 2}).toPoint());
        ModalWindow::settle();
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
        ASSERT_TRUE(field);
        field->forceActiveFocus();
        window.key(Qt::Key_A, Qt::ControlModifier);
        window.type(text);
        window.key(Qt::Key_Return);
        settle();
        settle();
    }
};

}  // namespace

TEST_F(TaskScreen, ShowsAPageOfNumberedRows) {
    run([&](ModalWindow& window) {
        EXPECT_TRUE(window.text("任务14"));
        EXPECT_TRUE(window.text("共计31条数据"));
        list->nextPage();
        settle();
        EXPECT_TRUE(window.text("任务15"));
        EXPECT_TRUE(window.text("16")) << "rows are numbered through";
    });
}

TEST_F(TaskScreen, EveryControlDoesItsOwn) {
    run([&](ModalWindow& window) {
        QQuickItem* dateKind = window.find("currentText", "实际交底时间");
        QQuickItem* status = window.find("currentText", "全部");
        QQuickItem* page = window.find("objectName", "page");
        QQuickItem* search = window.find("placeholderText", "请输入名称进行搜索");
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        const auto dateField = [&](bool isEnd) {  // the start stands to the left
            QList<QQuickItem*> fields;
            support::findItem(window.view()->contentItem(), [&](QQuickItem* item) {
                if (item->property("day").isValid())
                    fields << item;
                return false;
            });
            EXPECT_EQ(fields.size(), 2);
            const bool isFirst = fields[0]->mapToScene({}).x() < fields[1]->mapToScene({}).x();
            return fields[isFirst == isEnd ? 1 : 0];
        };
        const auto choose = [&](QQuickItem* combo) {
            combo->forceActiveFocus();
            window.key(Qt::Key_Down);
        };
        const auto asked = [&] {
            const auto& query = service.queries.back();
            const auto day = [](int64_t mills) {
                return mills < 0 ? "-" : QDateTime::fromMSecsSinceEpoch(mills).toString("MM-dd");
            };
            return QString("%1 %2 %3/%4 %5 p%6x%7")
                .arg(query.status)
                .arg(query.dateType)
                .arg(day(query.startDateMills), day(query.endDateMills))
                .arg(QString::fromStdWString(query.keyword))
                .arg(query.currentPage)
                .arg(query.pageSize)
                .toStdString();
        };
        const QString now = QDate::currentDate().toString("MM-dd");
        EXPECT_FALSE(dateKind->isEnabled());
        const std::tuple<const char*, std::function<void()>, QString> steps[] = {
            {"last page", [&] { window.click(button(window, "末页")); }, "-1 -1 -/-  p3x15"},
            {"page 0", [&] { enter(window, page, "0"); }, "-1 -1 -/-  p1x15"},
            {"page 99", [&] { enter(window, page, "99"); }, "-1 -1 -/-  p3x15"},
            {"不限", [&] { window.click(window.find("text", "不限")); }, "-1 1 " + now + "/" + now + "  p3x15"},
            {"kind of date", [&] { choose(dateKind); }, "-1 2 " + now + "/" + now + "  p3x15"},
            {"start", [&] { enter(window, dateField(false), "2024-02-28"); }, "-1 2 02-28/" + now + "  p3x15"},
            {"end", [&] { enter(window, dateField(true), "2024-03-02"); }, "-1 2 02-28/03-02  p3x15"},
            {"no date", [&] { enter(window, dateField(true), "2024-02-30"); }, "-1 2 02-28/03-02  p3x15"},
            {"Enter in the search", [&] { enter(window, search, "x"); }, "-1 2 02-28/03-02 x p3x15"},
            {"the search's icon",
             [&] {
                 window.click(search);
                 window.type("y");
                 window.click(support::findItem(search, [](QQuickItem* item) {
                     return item->property("iconSource") == QUrl("qrc:/ui/Images/search.png");
                 }));
             },
             "-1 2 02-28/03-02 xy p1x15"},
            {"next", [&] { window.click(button(window, "下一页")); }, "-1 2 02-28/03-02 xy p2x15"},
            {"status", [&] { choose(status); }, "1 2 02-28/03-02 xy p1x15"},
            {"page size", [&] { choose(window.find("objectName", "pageSizes")); }, "1 2 02-28/03-02 xy p1x20"},
            {"today",
             [&] {
                 window.click(button(window, "常用日期范围"));
                 window.click(window.text("今天"));
             },
             "1 2 " + now + "/" + now + " xy p1x20"}};
        for (const auto& [what, act, expected] : steps) {
            act();
            settle();
            EXPECT_EQ(asked(), expected.toStdString()) << what;
        }
        EXPECT_EQ(page->property("text"), "1");
        ASSERT_EQ(host.messages.size(), 1);
        EXPECT_TRUE(host.messages.takeLast().startsWith("“2024-02-30”不是日期"));

        service.queries.clear();
        window.click(button(window, "刷新"));
        settle();
        EXPECT_EQ(service.queries.size(), 1u);
        ModalWindow::run([&] { window.click(button(window, "新建")); },
                         [](ModalWindow& editor) { EXPECT_TRUE(editor.find("name", "任务名称：")); });
        ModalWindow::run([&] { window.click(window.text("提醒")); },
                         [](ModalWindow& remind) { EXPECT_TRUE(remind.text("提醒已过期的未交底任务")); });
        task(2)->setSelected(true);
        ModalWindow::run([&] { window.click(button(window, "移动")); },
                         [](ModalWindow& chooser) { EXPECT_TRUE(chooser.text("任务“任务2”")); });
        window.click(button(window, "导出"));
        EXPECT_EQ(host.messages, QStringList{"该功能将在后续版本提供"});

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
    service.tasks[0].planDisclosureDateMills = QDate(2024, 2, 29).startOfDay().toMSecsSinceEpoch();
    run([&](ModalWindow& window) {
        EXPECT_EQ(dateCell(window, "t0", "计划交底日期")->property("value"), "2024-02-29");
        window.click(window.find("text", "不限"));
        QQuickItem* start = window.find("day", list->searchStartDate());
        ASSERT_TRUE(start);
        EXPECT_EQ(start->property("text"), QDate::currentDate().toString(Qt::ISODate));
        enter(window, start, "2024-02-29");
        EXPECT_EQ(start->property("text"), "2024-02-29");
        EXPECT_EQ(service.queries.back().startDateMills, QDate(2024, 2, 29).startOfDay().toMSecsSinceEpoch());
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
        EXPECT_TRUE(remove->isEnabled());
        list->nextPage();
        settle();
        EXPECT_TRUE(window.text("已选 2 条"));
        list->prevPage();
        settle();
        window.click(remove);
        settle();
        EXPECT_EQ(service.tasks.size(), 29u);
        EXPECT_FALSE(window.text("任务2"));
        EXPECT_FALSE(remove->isEnabled());
        window.click(window.find("objectName", "selectAll"));
        window.click(remove);
        settle();
        EXPECT_EQ(service.tasks.size(), 14u);
        EXPECT_TRUE(window.text("任务30"));
    });
}

TEST_F(TaskScreen, CellsAreEditedUntilTheTaskIsPublished) {
    run([&](ModalWindow& window) {
        QQuickItem* date = dateCell(window, "t0", "计划交底日期");
        ASSERT_TRUE(date);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            const QString today = "day" + QDate::currentDate().toString(Qt::ISODate);
            date->forceActiveFocus();
            window.key(key);
            EXPECT_TRUE(QTest::qWaitFor([&] { return window.find("objectName", today) != nullptr; }));
            window.key(Qt::Key_Escape);
            EXPECT_TRUE(QTest::qWaitFor([&] { return window.find("objectName", today) == nullptr; }));
        }
        service.refused = L"update";
        QMetaObject::invokeMethod(date, "picked", Q_ARG(QString, "2024-03-01"));
        EXPECT_EQ(date->property("value"), "") << "what the service refuses is not shown";
        service.refused.clear();
        settle();
        EXPECT_FALSE(dateCell(window, "t1", "计划交底日期")->property("editable").toBool());

        const QPoint owner = window.text("张伟(zhangwei)")->mapToScene({5, 5}).toPoint();
        QTest::mouseMove(window.view(), owner);
        ModalWindow::settle();
        QQuickItem* chooser = window.find("currentText", "张伟(zhangwei)");
        ASSERT_TRUE(chooser);
        const std::size_t updates = service.updates.size();
        QWheelEvent wheel(owner, window.view()->mapToGlobal(owner), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.view(), &wheel);
        EXPECT_EQ(service.updates.size(), updates) << "the wheel scrolls, it chooses nobody";
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
                ModalWindow::settle();
                return !openList();
            });
        };
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_N}) {
            ASSERT_TRUE(opens(key)) << QKeySequence(key).toString().toStdString();
            ASSERT_TRUE(closes(Qt::Key_Escape));
        }
        EXPECT_EQ(service.updates.size(), updates) << "a key in passing chooses nobody";
        ASSERT_TRUE(opens(Qt::Key_Down));
        QTest::keyPress(openList(), Qt::Key_Down);
        ASSERT_TRUE(closes(Qt::Key_Return));
        ASSERT_EQ(service.updates.size(), updates + 1);
        EXPECT_EQ(service.updates.back().disclosureUserName, L"lina");
        EXPECT_EQ(chooser->property("currentIndex"), 0);
        EXPECT_EQ(task(0)->property("owner"), "张伟(zhangwei)");
    });
}

TEST_F(TaskScreen, CommandsOfARowReachItsTask) {
    run([&](ModalWindow& window) {
        doubleClick(window, window.text("任务1"));
        EXPECT_EQ(host.messages, QStringList{"已发布的任务暂不支持编辑"});
        ModalWindow::run([&] { doubleClick(window, window.text("任务0")); },
                         [](ModalWindow& renaming) { renaming.key(Qt::Key_Escape); });
        EXPECT_EQ(currentRow(window), 0);
        EXPECT_TRUE(service.updates.empty());
    });
}

TEST_F(TaskScreen, ATaskIsRenamed) {
    run([&](ModalWindow& window) {
        window.click(window.text("任务0"));
        ModalWindow::run([&] { window.key(Qt::Key_F2); },
                         [&](ModalWindow& renaming) {
                             const QQuickItem* field = renaming.find("name", "任务名称：");
                             const auto value = [field] { return field->property("value").toString(); };
                             EXPECT_EQ(renaming.dialog()->minimumSize(), QSize(300, 170));
                             EXPECT_EQ(value(), "任务0");
                             renaming.type("  ");
                             renaming.key(Qt::Key_Return);
                             EXPECT_EQ(host.messages, QStringList{"任务名称不能为空"});
                             EXPECT_EQ(value(), "");
                             service.refused = L"update";
                             renaming.compose("zhu", " 柱钢筋绑扎\n交底 ");
                             renaming.click(renaming.text("确定"));
                             EXPECT_TRUE(renaming.dialog()->isVisible());
                             EXPECT_EQ(value(), "柱钢筋绑扎 交底") << "what the service refuses is kept";
                             EXPECT_TRUE(window.text("任务0"));
                             service.refused.clear();
                             service.tasks[0].remark = L"他人的备注";
                             renaming.compose("2", "二");
                             renaming.key(Qt::Key_Return);
                             EXPECT_FALSE(renaming.dialog()->isVisible());
                         });
        EXPECT_EQ(task(0)->name(), "柱钢筋绑扎 交底二");
        settle();
        EXPECT_EQ(service.tasks[0].name, L"柱钢筋绑扎 交底二");
        EXPECT_EQ(service.tasks[0].remark, L"他人的备注") << "after a refusal the task is read again";
        EXPECT_TRUE(window.text("柱钢筋绑扎 交底二"));
        const std::size_t updates = service.updates.size();
        ModalWindow::run([&] { window.key(Qt::Key_F2); }, [](ModalWindow& renaming) { renaming.key(Qt::Key_Return); });
        EXPECT_EQ(service.updates.size(), updates) << "the same name is not stored";
    });
}

TEST_F(TaskScreen, KeysReachTheRows) {
    run([&](ModalWindow& window) {
        table(window)->forceActiveFocus();
        window.key(Qt::Key_Delete);
        window.key(Qt::Key_Return);
        EXPECT_TRUE(host.messages.isEmpty()) << "no row is current or checked";
        window.key(Qt::Key_Down);
        window.key(Qt::Key_Down);
        window.key(Qt::Key_F2);
        EXPECT_EQ(host.messages, QStringList{"已发布的任务暂不支持编辑"});
        window.key(Qt::Key_Up);
        ModalWindow::run([&] { window.key(Qt::Key_Return); },
                         [](ModalWindow& editor) { EXPECT_TRUE(editor.find("value", "任务0")); });
        window.key(Qt::Key_Space);
        window.key(Qt::Key_Delete);
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
        QQuickItem* edit = support::findItem(window.view()->contentItem(), [](QQuickItem* item) {
            return item->property("task").value<QObject*>() &&
                   item->property("iconSource") == QUrl("qrc:/ui/Images/edit.png");
        });
        ASSERT_TRUE(edit);
        auto* task = edit->property("task").value<TaskModel*>();
        window.click(edit);
        window.click(edit);
        EXPECT_EQ(host.messages.size(), 2) << "published tasks are not edited";
        window.click(window.text(task->property("name").toString()));
        window.key(Qt::Key_Space);
        EXPECT_EQ(host.messages.size(), 2) << "nothing is to be edited";
        EXPECT_TRUE(task->selected());
    });
}

TEST_F(TaskScreen, AnotherReadingKeepsThePlace) {
    host.window.resize(1000, 500);
    run([&](ModalWindow& window) {
        window.click(window.text("任务1"));
        window.key(Qt::Key_End);
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
    host.rights.granted.clear();
    run([&](ModalWindow& window) {
        task(0)->setSelected(true);
        EXPECT_FALSE(button(window, "删除")->isEnabled());
        EXPECT_FALSE(dateCell(window, "t0", "计划交底日期")->property("editable").toBool());
        doubleClick(window, window.text("任务0"));
        window.key(Qt::Key_F2);
        EXPECT_TRUE(host.messages.isEmpty());
    });
}
