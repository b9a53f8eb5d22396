#include <QClipboard>
#include <QQmlProperty>

#include "commands/DisclosureManage/ui/task/AddTaskViewModel.h"
#include "commands/DisclosureManage/ui/task/AddTaskWnd.h"
#include "commands/DisclosureManage/ui/task/EditNameWnd.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "tests/commands/FakeEditor.h"
#include "tests/commands/TaskWindow.h"
#include "tests/support/FakeDocuments.h"

using DISCLOSUREPACKAGE::TaskRecord;

namespace {

const QDate kToday(2024, 2, 29);

int64_t mills(QDate date, QTime time = QTime(0, 0)) {
    return QDateTime(date, time).toMSecsSinceEpoch();
}

class Editor : public testing::Test {
protected:
    Editor() {
        host.window.resize(1300, 1100);
        host.add(projects);
        service.fill();
    }

    static void edit(const TaskRecord& task, const ModalWindow::Steps& steps) {
        ModalWindow::run([&] { CAddTaskWnd::edit(task); }, steps);
    }
    static QString outline(const TreeNode* node) {
        QStringList rows;
        for (const TreeNode* child : node->children()) {
            const QString below = outline(child);
            rows << child->property("nodeName").toString() + (below.isEmpty() ? "" : "[" + below + "]");
        }
        return rows.join(' ');
    }
    static QString outline(CAddTaskViewModel& model) { return outline(model.bimDataModel()->nodeOf({})); }

    support::ScreenHost host;
    support::FakeDisclosureMgr& service = host.manager;
    FakeProjects projects;
    support::FakeDocuments store{host.core};
};

/// Types into the field of that caption.
void enter(ModalWindow& window, const QString& caption, const QString& text) {
    QQuickItem* field = window.named(caption);
    ASSERT_TRUE(field) << caption.toStdString();
    window.fill(field->property("field").value<QQuickItem*>(), text).key(Qt::Key_Tab);
}

/// Clicks "选择" of that caption, and does `steps` in the picker.
void choose(ModalWindow& window, const QString& caption, const ModalWindow::Steps& steps) {
    const QQuickItem* button = window.find([&](QQuickItem* item) {
        return item->property("text") == "选择" && item->inherits("QQuickButton") &&
               item->parentItem()->property("name") == caption;
    });
    ModalWindow::run([&] { window.click(button); }, steps);
}

}  // namespace

TEST(TaskRules, FirstBrokenOneIsToldInTheirOrder) {
    TaskRecord task;
    const std::pair<const char*, std::function<void()>> rows[] = {
        // what is told, and what mends it
        {"taskName 任务名称不能为空", [&] { task.name = L"柱"; }},
        {"disName 请选择交底人", [&] { task.disclosureUserName = L"zhangwei"; }},
        {"receiveName 请选择接受交底人",
         [&] {
             task.disclosureTaskReceiveUserList.resize(1);
             task.constructionStartDateMills = mills(kToday, QTime(8, 0));
             task.constructionEndDateMills = mills(kToday.addDays(-1));
         }},
        {"constEndDate 施工开始日期不得大于施工结束日期",
         [&] { task.constructionEndDateMills = mills(kToday, QTime(7, 0)); }},  // the same day
        {"endDate 请输入截止日期", [&] { task.expiryDateMills = mills(kToday.addDays(-1), QTime(23, 59, 59)); }},
        {"endDate 截止日期不能小于发布日期", [&] { task.expiryDateMills = mills(kToday); }},
        {"connectdoclist 请关联或上传交底资料", [&] { task.disclosureTaskDocList.resize(11); }},
        {"connectdoclist 最多可关联10份资料", [&] { task.disclosureTaskDocList.resize(10); }},
        {" ", [] {}}};
    for (const auto& [told, mend] : rows) {
        const BrokenRule rule = FirstBrokenRule(task, kToday);
        EXPECT_EQ(rule.field + " " + rule.message, told);
        mend();
    }
}

TEST_F(Editor, KeepsWhatItDoesNotChange) {
    TaskRecord task = wholeTask();
    task.planDisclosureDateMills = mills(kToday, QTime(13, 45));
    task.actualDisclosureDateMills = mills(kToday, QTime(9, 30));
    service.tasks = {task};
    CAddTaskViewModel model(task);
    EXPECT_EQ(model.planDate(), "2024-02-29");
    model.setPlanDate("2024-02-29");
    for (const char* date : {"2024-02-30", "2024-02-28", ""})
        model.setConstStartDate(date);
    EXPECT_EQ(model.constStartDate(), "") << "not a day, or cleared";
    model.setConstEndDate("2024-03-01");
    model.onClickSave();
    ASSERT_EQ(service.updates.size(), 1u);
    const TaskRecord& sent = service.updates[0];
    EXPECT_EQ(sent.planDisclosureDateMills, mills(kToday, QTime(13, 45)));
    EXPECT_EQ(sent.actualDisclosureDateMills, mills(kToday, QTime(9, 30))) << "the discloser's own";
    EXPECT_EQ(sent.constructionEndDateMills, mills(kToday.addDays(1)));
    EXPECT_EQ(sent.deptId, L"dept");
    EXPECT_EQ(sent.disclosureTaskReceiveUserList[0].id, L"r1");
    EXPECT_EQ(service.calls.back(), L"log 修改交底 技术→交底管理→修改");

    CAddTaskViewModel(task).onClickRelease();
    EXPECT_EQ(service.updates.back().isPublish, 1);
    EXPECT_EQ(service.calls.back(), L"log 修改交底 技术→交底管理→修改");
}

TEST_F(Editor, StrangeNamesArriveAsTheyWereTyped) {
    TaskRecord task = wholeTask(L"");
    for (const QString& name : {QString(10000, QChar(u'柱')), QString("🏗️ 交底"), QString("\u202eأساس\u202c"),
                                QString("<b>粗</b>&lt;"), QString("👷\u200d♂️")}) {
        CAddTaskViewModel model(task);
        model.setTaskName("  " + name + " \n\u3000\u2003");
        model.onClickSave();
        EXPECT_EQ(QString::fromStdWString(service.saves.back().name), name);
        EXPECT_EQ(model.taskName(), name);
    }
    const auto saves = service.saves.size();
    CAddTaskViewModel model(task);
    for (const char* blanks : {" \t　", "\u200b\u2060", "\u3164\ufe0f\u00ad", "\r\n\u2028"}) {
        model.setTaskName(blanks);
        model.onClickSave();
        EXPECT_EQ(model.taskName(), "");
        EXPECT_EQ(host.told(), "任务名称不能为空") << blanks;
    }
    EXPECT_EQ(service.saves.size(), saves);
}

TEST_F(Editor, WhatIsPastedShowsAsItWillBeStored) {
    const auto paste = [](ModalWindow& window, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        window.key(Qt::Key_V, Qt::ControlModifier);
    };
    edit(wholeTask(), [&](ModalWindow& window) {
        window.key(Qt::Key_Home);
        paste(window, "一\r\n二\t三\u2028");
        EXPECT_TRUE(window.find("value", "一 二 三 柱钢筋绑扎"));
        QQuickItem* remark = window.find("maxlength", 300);
        remark->forceActiveFocus();
        paste(window, "甲\n乙\v丙\u0007丁");
        EXPECT_EQ(remark->property("text"), "甲\n乙\n丙丁三层");
        EXPECT_TRUE(window.text("8/300"));
        service.refused = L"update";
        window.click("保存计划");
        EXPECT_TRUE(window.find("value", "一 二 三 柱钢筋绑扎"));
        EXPECT_EQ(remark->property("text"), "甲\n乙\n丙丁三层") << "a refused save loses nothing";
    });
    ASSERT_EQ(service.updates.size(), 1u);
    EXPECT_EQ(service.updates[0].name, L"一 二 三 柱钢筋绑扎");
    EXPECT_EQ(service.updates[0].remark, L"甲\n乙\n丙丁三层");
}

TEST_F(Editor, DocumentsAreUploadedOpenedAndRemoved) {
    CAddTaskViewModel model(wholeTask());
    model.onClickUploadDoc();
    EXPECT_EQ(model.connectdoclist().size(), 1) << "the user gave up";
    service.chosenFile = L"照片.png";
    for (int i = 0; i < 10; ++i)
        model.onClickUploadDoc();
    EXPECT_EQ(host.told(), "最多可关联10份资料");
    EXPECT_EQ(service.uploads, 9) << "the eleventh is not uploaded for nothing";
    model.onClickViewDocItem(0);
    model.onClickViewDocItem(11);
    EXPECT_EQ(store.calls, std::vector<std::wstring>{L"open uuid md5 方案.pdf in "});
    model.onClickDelDocItem(0);
    model.onClickDelDocItem(-1);
    EXPECT_EQ(model.connectdoclist().size(), 9);
    const auto& doc = model.task().disclosureTaskDocList.back();
    EXPECT_EQ(doc.id + L" " + doc.uuid + L" " + doc.md5 + L" " + doc.name, L"file9 uuid9 md59 照片.png");
}

TEST_F(Editor, IdsStayFromOneClickToTheNext) {
    TaskRecord task = wholeTask(L"");
    task.disclosureTaskReceiveUserList[1].id.clear();
    task.disclosureTaskNodeList[1].id.clear();
    service.chosenFile = L"照片.png";
    CAddTaskViewModel model(task);
    service.refused = L"create";
    model.onClickSave();
    model.onClickUploadDoc();
    model.onClickRelease();
    ASSERT_EQ(service.saves.size(), 2u);
    const TaskRecord first = service.saves[0];
    const TaskRecord second = service.saves[1];
    const auto ids = [](const TaskRecord& saved) {
        return std::vector{saved.id, saved.disclosureTaskReceiveUserList[0].id,
                           saved.disclosureTaskReceiveUserList[1].id, saved.disclosureTaskNodeList[1].id};
    };
    EXPECT_EQ(ids(first), ids(second));
    EXPECT_EQ(ids(first)[1], L"r1");
    for (const int made : {0, 2, 3})
        EXPECT_EQ(ids(first)[made].size(), 36u) << made;
    EXPECT_EQ(second.disclosureTaskDocList.size(), 2u);
    EXPECT_TRUE(service.updates.empty());
    CAddTaskViewModel other(task);
    other.onClickSave();
    EXPECT_NE(service.saves.back().id, first.id);
}

TEST_F(Editor, AsksBeforeInputIsLostAndOnlyThen) {
    using Hand = std::function<void(ModalWindow&)>;
    const Hand escape = [](ModalWindow& window) { window.key(Qt::Key_Escape); };
    const Hand cancel = [](ModalWindow& window) { window.click("取消"); };
    const Hand typeADate = [](ModalWindow& window) {
        window.focus(window.named("截止日期：")->property("field").value<QQuickItem*>()).key(Qt::Key_Backspace);
    };
    const std::tuple<Hand, Hand, bool> rows[] = {
        {[](ModalWindow&) {}, escape, false},
        {[](ModalWindow& window) { window.type("x"); }, escape, true},
        {[](ModalWindow& window) { window.press("删除"); }, cancel, true},
        {typeADate, cancel, true},
    };
    for (const auto& [change, leave, isLoss] : rows) {
        host.answer = BASEUI::MessageResult::Cancel;
        edit(wholeTask(), [&, &first = change, &second = leave, asked = isLoss](ModalWindow& window) {
            first(window);
            second(window);
            EXPECT_EQ(window.dialog()->isVisible(), asked);
            EXPECT_EQ(host.told(), asked ? "是否放弃修改？\n修改的内容尚未保存，放弃后不能恢复。?" : "");
            host.answer = BASEUI::MessageResult::Ok;
            if (asked)
                second(window);
            EXPECT_FALSE(window.dialog()->isVisible());
        });
        host.messages.clear();
    }
    EXPECT_TRUE(service.updates.empty());
}

TEST_F(Editor, ARefusedSaveLeadsToWhatIsToBeMended) {
    host.window.resize(900, 700);
    TaskRecord task = wholeTask();
    task.disclosureTaskViewportList.clear();
    task.disclosureTaskNodeList.clear();
    const std::pair<std::function<void(TaskRecord&)>, const char*> rows[] = {
        {[](TaskRecord& broken) { broken.name.clear(); }, "任务名称："},
        {[](TaskRecord& broken) { broken.disclosureUserName.clear(); }, "选择交底人"},
        {[](TaskRecord& broken) { broken.disclosureTaskReceiveUserList.clear(); }, "选择接受交底人"},
        {[](TaskRecord& broken) { broken.constructionStartDateMills = mills(kToday); }, "施工结束日期："},
        {[](TaskRecord& broken) { broken.expiryDateMills = 0; }, "截止日期："},
        {[](TaskRecord& broken) { broken.disclosureTaskDocList.clear(); }, "本地上传"},
    };
    for (const auto& [spoil, place] : rows) {
        TaskRecord broken = task;
        broken.constructionEndDateMills = mills(kToday.addDays(-1));
        spoil(broken);
        edit(broken, [&](ModalWindow& window) {
            QQuickItem* form = window.find("contentHeight", 770);
            ASSERT_TRUE(form);
            form->setProperty("contentY", form->property("contentHeight").toReal() - form->height());
            window.click("保存计划");
            QQuickItem* focused = window.view()->activeFocusItem();
            ASSERT_TRUE(focused);
            const QString name = QQmlProperty(focused, "Accessible.name", qmlContext(focused)).read().toString();
            EXPECT_EQ(name.isEmpty() ? focused->property("text").toString() : name, place);
            const qreal top = focused->mapToItem(form, {0, 0}).y();
            EXPECT_TRUE(top >= 0 && top + focused->height() <= form->height()) << place;
            form->setProperty("contentY", 0);
            const QPointF box = window.find("initialExpandAll", true)->mapToScene({50, 10});
            QWheelEvent wheel(box, window.view()->mapToGlobal(box.toPoint()), {}, {0, -120}, {}, {}, {}, false);
            QCoreApplication::sendEvent(window.view(), &wheel);
            EXPECT_GT(form->property("contentY").toReal(), 0) << "an empty box keeps no wheel";
        });
    }
}

TEST_F(Editor, AConflictIsSettledFieldByField) {
    TaskRecord began = wholeTask();
    began.updateDateMills = 1;
    TaskRecord present = began;
    present.updateDateMills = mills(kToday, QTime(9, 5));
    present.updateBy = L"lina";
    present.name = L"他人改名";
    present.remark = L"他人备注";
    present.planDisclosureDateMills = mills(kToday);
    present.actualDisclosureDateMills = mills(kToday);
    present.disclosureTaskReceiveUserList.resize(1);
    present.disclosureTaskDocList.push_back({L"d2", L"t0", 0, L"补充.pdf", L"uuid2", L"md5", 9, L"pdf", 1, L""});
    service.tasks = {present};
    edit(began, [&](ModalWindow& window) {
        window.type("我的").click("梁柱节点").key(Qt::Key_Delete);
        enter(window, "施工开始日期：", "2024-03-02");
        const auto save = [&] { window.click("保存计划"); };
        ModalWindow::run(save, [](ModalWindow& conflict) {
            EXPECT_TRUE(conflict.text("任务已由李娜于2024-02-29 09:05修改。请逐项选择要保存的内容："));
            conflict.key(Qt::Key_Escape);
        });
        EXPECT_TRUE(window.find("value", "我的柱钢筋绑扎")) << "nothing is lost by giving up";
        ModalWindow::run(save, [](ModalWindow& conflict) {
            QStringList rows;
            for (const QVariant& row : conflict.context("conflictModel")->property("fields").toList()) {
                QStringList parts;
                for (const char* part : {"title", "began", "own", "present", "isBoth", "isOwn"})
                    parts << row.toMap()[part].toString();
                rows << parts.join('|');
            }
            EXPECT_EQ(rows, QStringList(
                                {"任务名称|柱钢筋绑扎|我的柱钢筋绑扎|他人改名|true|true",
                                 "接受交底人|李娜、离职者|李娜、离职者|李娜|false|false",
                                 "施工开始日期||2024-03-02||false|true", "计划交底日期|||2024-02-29|false|false",
                                 "关联BIM|三层视口、梁柱节点、node|三层视口、node|三层视口、梁柱节点、node|false|true",
                                 "关联资料|方案.pdf|方案.pdf|方案.pdf、补充.pdf|false|false",
                                 "备注|三层|三层|他人备注|false|false"}));
            conflict.click("他人改名");
            conflict.focus(conflict.text("2024-02-29")->parentItem()->nextItemInFocusChain(false))
                .key(Qt::Key_Space)
                .click("保存");
        });
        EXPECT_FALSE(window.dialog()->isVisible());
    });
    const TaskRecord& saved = service.updates.back();
    EXPECT_EQ(saved.name + L"|" + saved.remark, L"他人改名|他人备注");
    EXPECT_EQ(saved.updateDateMills, present.updateDateMills);
    EXPECT_EQ(saved.planDisclosureDateMills, 0);
    EXPECT_EQ(saved.actualDisclosureDateMills, present.actualDisclosureDateMills);
    EXPECT_EQ(saved.constructionStartDateMills, mills(QDate(2024, 3, 2)));
    EXPECT_EQ(saved.disclosureTaskReceiveUserList.size(), 1u);
    EXPECT_EQ(saved.disclosureTaskDocList.size(), 2u);
    EXPECT_EQ(saved.disclosureTaskNodeList.size(), 1u);
}

TEST_F(Editor, AnyOtherRefusalIsNoConflict) {
    TaskRecord task = wholeTask();
    service.tasks = {task};
    service.refused = L"update";
    CAddTaskViewModel model(task);
    ModalWindow::expectNone([&] { model.onClickSave(); });
    EXPECT_TRUE(host.messages.isEmpty()) << "the host has shown it";
    service.tasks[0].updateDateMills = mills(kToday);
    service.tasks[0].updateBy = L"某人";
    ModalWindow::expectNone([&] { model.onClickSave(); });
    EXPECT_EQ(service.updates.size(), 3u) << "where nothing differs it is saved once more without a question";
}

TEST_F(Editor, ARenameThatIsRefusedSaysWhatOthersHaveChanged) {
    service.tasks = {wholeTask()};
    const auto refuse = [&](const QString&) {
        service.tasks[0].name = L"他人改名";
        service.tasks[0].updateBy = L"lina";
        service.tasks[0].updateDateMills = mills(kToday);
        return false;
    };
    ModalWindow::run([&] { CEditNameWnd::edit("t0", "柱", refuse); },
                     [](ModalWindow& window) {
                         window.type("梁").click("确定");
                         EXPECT_TRUE(window.text(
                             "任务已由李娜于2024-02-29 00:00修改，现在的名称是“他人改名”。再次确定即保存您的名称。"));
                         EXPECT_TRUE(window.find("value", "梁"));
                     });
}

TEST_F(Editor, LinksAreShownByProjectAndRemoved) {
    CAddTaskViewModel model(wholeTask());
    EXPECT_EQ(outline(model), "全部[一号楼[视口列表[三层视口] 钢筋节点[梁柱节点]] 未知项目（8）[钢筋节点[node]]]");
    const auto at = [&](std::initializer_list<int> rows) {
        TreeNode* node = model.bimDataModel()->nodeOf({});
        for (const int row : rows)
            node = node->children().at(row);
        return static_cast<CBimTreeNode*>(node);
    };
    model.onClickDelBIMItem(at({0, 0}));
    model.onClickDelBIMItem(nullptr);
    model.onClickDelBIMItem(at({0, 0, 1, 0}));
    EXPECT_EQ(outline(model), "全部[一号楼[视口列表[三层视口]] 未知项目（8）[钢筋节点[node]]]")
        << "the same id elsewhere stays";
    EXPECT_EQ(model.task().disclosureTaskNodeList.size(), 1u);
    model.onClickDelBIMItem(at({0, 0, 0, 0}));
    model.onClickDelBIMItem(at({0, 0, 0, 0}));
    EXPECT_EQ(outline(model), "");
    EXPECT_TRUE(model.task().disclosureTaskViewportList.empty());
}

TEST_F(Editor, ShowsAndChangesATaskOfTheList) {
    TaskRecord task = wholeTask();
    for (const wchar_t* name : {L"图纸.dwg", L"照片.png"})
        task.disclosureTaskDocList.push_back({name, L"t0", 0, name, L"uuid", L"md5", 9, L"", 1, L""});
    service.tasks = {task};
    TaskManagerViewModel list;
    list.setCatalogId("base");
    awaitRefresh(list);
    const auto modify = [&list] { list.ModifyTask(list.taskModel()->task_list()->at(0)); };

    service.queries.clear();
    ModalWindow::run(modify, [&](ModalWindow& window) {
        EXPECT_TRUE(window.find("value", "李娜、离职者")) << "who has left the department stays named";
        window.click("梁柱节点");
        const QQuickItem* row = window.text("梁柱节点")->parentItem();
        EXPECT_GT(row->x(), 0);
        EXPECT_EQ(row->childItems().first()->width(), row->width() + row->x()) << "the indentation is highlighted too";
        window.key(Qt::Key_Delete);
        EXPECT_FALSE(window.text("梁柱节点"));
        choose(window, "交底人：", [](ModalWindow& picker) {
            EXPECT_EQ(picker.wrong({"noname", "!李娜(lina)"}), "") << "one is a receiver";
        });
        choose(window, "接受交底人：", [](ModalWindow& picker) {
            for (const char* person : {"李娜(lina)", "李娜(lina)", "noname"})
                picker.click(person).key(Qt::Key_Space);
            picker.click("确定");
        });
        enter(window, "施工开始日期：", "2024-03-02");
        enter(window, "施工结束日期：", "2024-03-01");
        EXPECT_TRUE(window.find("value", "2024-03-02"));
        window.click("保存计划");
        EXPECT_EQ(host.told(), "日期不能早于2024-03-02|日期不能早于2024-03-02")
            << "an end before the start is not saved";
        EXPECT_TRUE(window.find("value", "2024-03-01"));
        window.key(Qt::Key_Escape);
        EXPECT_FALSE(window.find("value", "2024-03-01"));
        enter(window, "施工结束日期：", "2024-03-05");
        enter(window, "计划交底日期：", "2024-03-06");
        enter(window, "截止日期：", "2124-03-07");
        const QQuickItem* doc = window.text("图纸.dwg")->parentItem();
        window.click(support::findItem(doc->parentItem(), [doc](QQuickItem* item) {
            return item->property("tooltipText") == "删除" && doc->isAncestorOf(item);
        }));
        window.find("maxlength", 300)->forceActiveFocus();
        window.key(Qt::Key_End, Qt::ControlModifier).compose("p", QString(400, 'x')).click("保存计划");
    });
    ASSERT_EQ(service.updates.size(), 1u);
    const TaskRecord& sent = service.updates[0];
    EXPECT_EQ(sent.disclosureTaskNodeList.size(), 1u);
    EXPECT_EQ((std::vector{sent.constructionStartDateMills, sent.constructionEndDateMills, sent.planDisclosureDateMills,
                           sent.expiryDateMills}),
              (std::vector{mills(QDate(2024, 3, 2)), mills(QDate(2024, 3, 5)), mills(QDate(2024, 3, 6)),
                           mills(QDate(2124, 3, 7))}));
    const auto& receivers = sent.disclosureTaskReceiveUserList;
    ASSERT_EQ(receivers.size(), 3u);
    EXPECT_EQ(receivers[0].id + receivers[1].id, L"r2r1") << "who was taken out and chosen again is the same";
    EXPECT_EQ(receivers[2].id.size(), 36u);
    ASSERT_EQ(sent.disclosureTaskDocList.size(), 2u);
    EXPECT_EQ(sent.disclosureTaskDocList[1].name, L"照片.png");
    EXPECT_EQ(sent.remark, L"三层" + std::wstring(298, L'x'));
    awaitRefresh(list);
    EXPECT_EQ(service.queries.size(), 0u) << "the row stays where it is";
    EXPECT_EQ(list.taskModel()->task_list()->at(0)->property("start_show"), "2024-03-02");

    service.tasks[0].name = L"他人改名";
    ModalWindow::run(modify,
                     [](ModalWindow& window) { EXPECT_TRUE(window.find("value", "他人改名")) << "not the old row"; });
    service.tasks[0].isPublish = 1;
    ModalWindow::expectNone(modify);
    EXPECT_EQ(host.told(), "已发布的任务暂不支持编辑") << "published since the row was read";
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.taskModel()->task_list()->at(0)->released(); }));

    host.core.managers.erase(BASECORE::NAMES::kDisclosure);
    ModalWindow::expectNone([&] { EXPECT_FALSE(CAddTaskWnd::edit(task)); });
}

namespace {

class NewTask : public TaskWindow {
protected:
    NewTask() : TaskWindow(31, {1300, 1100}, {CAuthCodeTool::kEditTasks}) {}
};

}  // namespace

TEST_F(NewTask, IsFilledInAndPublished) {
    service.refused = L"create";
    run([&](ModalWindow& window) {
        window.click("机电(5)");
        settle();
        list->lastPage();
        ModalWindow::run([&] { list->AddTask(); },
                         [&](ModalWindow& editor) {
                             EXPECT_EQ(editor.dialog()->minimumSize(), QSize(1040, 880));
                             editor.compose("zhu", "柱钢筋");
                             choose(editor, "交底人：",
                                    [](ModalWindow& picker) { picker.click("李娜(lina)").click("确定"); });
                             choose(editor, "接受交底人：", [](ModalWindow& picker) {
                                 EXPECT_FALSE(picker.text("李娜(lina)")) << "nobody briefs themselves";
                                 picker.click("noname").key(Qt::Key_Space).click("确定");
                             });
                             enter(editor, "截止日期：", QDate::currentDate().toString("yyyy-MM-dd"));
                             service.chosenFile = L"方案.pdf";
                             editor.click("本地上传");
                             EXPECT_FALSE(editor.text("关联模型")->isEnabled());
                             editor.click("发布交底");
                             EXPECT_TRUE(editor.find("value", "柱钢筋"));
                             service.refused.clear();
                             const QPoint place = support::centreOf(editor.text("发布交底"));
                             for (int click = 0; click < 2; ++click)  // a double click saves once
                                 QTest::mouseClick(editor.view(), Qt::LeftButton, {}, place);
                         });
        EXPECT_EQ(list->currentPage(), 1) << "where the latest change stands";
        EXPECT_EQ(service.saves.size(), 2u) << "one was refused";
        EXPECT_EQ(service.saves.back().disclosureCatalogId, L"mep");
        EXPECT_EQ(std::count(service.calls.begin(), service.calls.end(), L"log 发布交底 技术→交底管理→发布交底"), 1);
        EXPECT_TRUE(window.text("机电(6)"));
    });
}
