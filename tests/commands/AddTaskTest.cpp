#include <gtest/gtest.h>

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QQmlProperty>
#include <QQuickItem>
#include <QTest>
#include <QTimer>

#include "commands/DisclosureManage/DisclosureMgrProvider.h"
#include "commands/DisclosureManage/ui/task/AddTaskViewModel.h"
#include "commands/DisclosureManage/ui/task/AddTaskWnd.h"
#include "commands/DisclosureManage/ui/task/EditNameWnd.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "tests/commands/FakeEditor.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/QuickPilot.h"
#include "tests/support/ScreenHost.h"

using DISCLOSUREPACKAGE::TaskRecord;
using support::ModalWindow;

namespace {

const QDate kToday(2024, 2, 29);

int64_t mills(QDate date, QTime time = QTime(0, 0)) {
    return QDateTime(date, time).toMSecsSinceEpoch();
}

class Editor : public testing::Test {
protected:
    Editor() {
        host.window.resize(1300, 1100);
        host.core.managers[BASECORE::NAMES::kDisclosure] = &service;
        host.core.managers[BASECORE::NAMES::kDepartments] = &people;
        host.core.managers[BASECORE::NAMES::kProjectData] = &projects;
        host.core.managers[BASECORE::NAMES::kDocumentOperations] = &opener;
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
    FakeEditorService service;
    FakeOrganisation people;
    FakeProjects projects;
    FakeDocOpener opener;
};

/// Types into the field of that caption.
void enter(ModalWindow& window, const QString& caption, const QString& text) {
    QQuickItem* field = window.find("name", caption);
    ASSERT_TRUE(field) << caption.toStdString();
    auto* input = field->property("field").value<QQuickItem*>();
    input->forceActiveFocus();
    window.key(Qt::Key_A, Qt::ControlModifier);
    window.compose("p", text);
    window.key(Qt::Key_Tab);
}

/// Clicks "选择" of that caption, and does `steps` in the picker.
void choose(ModalWindow& window, const QString& caption, const ModalWindow::Steps& steps) {
    const QQuickItem* button = support::findItem(window.view()->contentItem(), [&](QQuickItem* item) {
        return item->property("text") == "选择" && item->parentItem()->property("name") == caption;
    });
    ModalWindow::run([&] { window.click(button); }, steps);
}

}  // namespace

TEST(TaskRules, FirstBrokenOneIsToldInTheirOrder) {
    TaskRecord task;
    const auto broken = [&] {
        const BrokenRule rule = FirstBrokenRule(task, kToday);
        return (rule.field + " " + rule.message).toStdString();
    };
    EXPECT_EQ(broken(), "taskName 任务名称不能为空");
    task.name = L"柱";
    EXPECT_EQ(broken(), "disName 请选择交底人");
    task.disclosureUserName = L"zhangwei";
    EXPECT_EQ(broken(), "receiveName 请选择接受交底人");
    task.disclosureTaskReceiveUserList.resize(1);
    task.constructionStartDateMills = mills(kToday, QTime(8, 0));
    task.constructionEndDateMills = mills(kToday.addDays(-1));
    EXPECT_EQ(broken(), "constEndDate 施工开始日期不得大于施工结束日期");
    task.constructionEndDateMills = mills(kToday, QTime(7, 0));  // the same day
    EXPECT_EQ(broken(), "endDate 请输入截止日期");
    task.constructionStartDateMills = 0;
    task.expiryDateMills = mills(kToday.addDays(-1), QTime(23, 59, 59));
    EXPECT_EQ(broken(), "endDate 截止日期不能小于发布日期");
    task.expiryDateMills = mills(kToday);
    EXPECT_EQ(broken(), "connectdoclist 请关联或上传交底资料");
    task.disclosureTaskDocList.resize(11);
    EXPECT_EQ(broken(), "connectdoclist 最多可关联10份资料");
    task.disclosureTaskDocList.resize(10);
    EXPECT_EQ(broken(), " ");
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
        EXPECT_EQ(host.messages.takeLast(), "任务名称不能为空") << blanks;
    }
    EXPECT_EQ(service.saves.size(), saves);
}

TEST_F(Editor, WhatIsPastedShowsAsItWillBeStored) {
    const auto paste = [](ModalWindow& window, QQuickItem* field, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        field->forceActiveFocus();
        window.key(Qt::Key_V, Qt::ControlModifier);
    };
    edit(wholeTask(), [&](ModalWindow& window) {
        window.key(Qt::Key_Home);
        paste(window, qobject_cast<QQuickItem*>(window.view()->focusObject()), "一\r\n二\t三\u2028");
        EXPECT_TRUE(window.find("value", "一 二 三 柱钢筋绑扎"));
        QQuickItem* remark = window.find("maxlength", 300);
        paste(window, remark, "甲\n乙\v丙\u0007丁");
        EXPECT_EQ(remark->property("text"), "甲\n乙\n丙丁三层");
        EXPECT_TRUE(window.text("8/300"));
        service.refused = L"update";
        window.click(window.text("保存计划"));
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
    EXPECT_EQ(host.messages, QStringList{"最多可关联10份资料"});
    EXPECT_EQ(service.uploads, 9) << "the eleventh is not uploaded for nothing";
    model.onClickViewDocItem(0);
    model.onClickViewDocItem(11);
    EXPECT_EQ(opener.opened, std::vector<std::wstring>{L"uuid 方案.pdf pdf"});
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
    EXPECT_EQ(first.id.size(), 36u);
    EXPECT_EQ(second.id, first.id);
    EXPECT_EQ(first.disclosureTaskReceiveUserList[0].id, L"r1");
    EXPECT_EQ(first.disclosureTaskReceiveUserList[1].id.size(), 36u);
    EXPECT_EQ(second.disclosureTaskReceiveUserList[1].id, first.disclosureTaskReceiveUserList[1].id);
    EXPECT_EQ(first.disclosureTaskNodeList[1].id.size(), 36u);
    EXPECT_EQ(second.disclosureTaskNodeList[1].id, first.disclosureTaskNodeList[1].id);
    EXPECT_EQ(second.disclosureTaskDocList.size(), 2u);
    EXPECT_TRUE(service.updates.empty());
    CAddTaskViewModel other(task);
    other.onClickSave();
    EXPECT_NE(service.saves.back().id, first.id);
}

TEST_F(Editor, AsksBeforeInputIsLostAndOnlyThen) {
    using Hand = std::function<void(ModalWindow&)>;
    const Hand escape = [](ModalWindow& window) { window.key(Qt::Key_Escape); };
    const Hand cancel = [](ModalWindow& window) { window.click(window.text("取消")); };
    const auto typeADate = [](ModalWindow& window) {
        window.find("name", "截止日期：")->property("field").value<QQuickItem*>()->forceActiveFocus();
        window.key(Qt::Key_Backspace);
    };
    const std::tuple<Hand, Hand, bool> rows[] = {
        {[](ModalWindow&) {}, escape, false},
        {[](ModalWindow& window) { window.type("x"); }, escape, true},
        {[](ModalWindow& window) { window.click(window.button("删除")); }, cancel, true},
        {typeADate, cancel, true},
    };
    for (const auto& [change, leave, isLoss] : rows) {
        host.messages.clear();
        host.answer = BASEUI::MessageResult::Cancel;
        edit(wholeTask(), [&, &first = change, &second = leave, asked = isLoss](ModalWindow& window) {
            first(window);
            second(window);
            EXPECT_EQ(window.dialog()->isVisible(), asked);
            EXPECT_EQ(host.messages,
                      asked ? QStringList{"是否放弃修改？\n修改的内容尚未保存，放弃后不能恢复。?"} : QStringList());
            host.answer = BASEUI::MessageResult::Ok;
            if (asked)
                second(window);
            EXPECT_FALSE(window.dialog()->isVisible());
        });
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
            window.click(window.text("保存计划"));
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
        window.type("我的");
        window.click(window.text("梁柱节点"));
        window.key(Qt::Key_Delete);
        enter(window, "施工开始日期：", "2024-03-02");
        const auto save = [&] { window.click(window.text("保存计划")); };
        ModalWindow::run(save, [](ModalWindow& conflict) {
            EXPECT_TRUE(conflict.text("任务已由李娜于2024-02-29 09:05修改。请逐项选择要保存的内容："));
            conflict.key(Qt::Key_Escape);
        });
        EXPECT_TRUE(window.find("value", "我的柱钢筋绑扎")) << "nothing is lost by giving up";
        ModalWindow::run(save, [](ModalWindow& conflict) {
            QStringList rows;
            for (const QVariant& row : conflict.context("conflictModel")->property("fields").toList()) {
                const QVariantMap map = row.toMap();
                rows << map["title"].toString() + "|" + map["began"].toString() + "|" + map["own"].toString() + "|" +
                            map["present"].toString() + (map["isBoth"].toBool() ? "|both" : "") +
                            (map["isOwn"].toBool() ? "|own" : "");
            }
            EXPECT_EQ(rows, QStringList({"任务名称|柱钢筋绑扎|我的柱钢筋绑扎|他人改名|both|own",
                                         "接受交底人|李娜、离职者|李娜、离职者|李娜", "施工开始日期||2024-03-02||own",
                                         "计划交底日期|||2024-02-29",
                                         "关联BIM|三层视口、梁柱节点、node|三层视口、node|三层视口、梁柱节点、node|own",
                                         "关联资料|方案.pdf|方案.pdf|方案.pdf、补充.pdf", "备注|三层|三层|他人备注"}));
            conflict.click(conflict.text("他人改名"));
            conflict.text("2024-02-29")->nextItemInFocusChain(false)->forceActiveFocus();
            conflict.key(Qt::Key_Space);
            conflict.click(conflict.text("保存"));
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
                         window.type("梁");
                         window.click(window.text("确定"));
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

TEST_F(Editor, FillsInAndSavesANewTask) {
    DisclosureMgrProvider provider;
    service.refused = L"create";
    ModalWindow::run(
        [&] { provider.ShowMainWindow(); },
        [&](ModalWindow& list) {
            list.click(list.text("机电(5)"));
            auto* tasks = qobject_cast<TaskManagerViewModel*>(list.context("theTaskModel"));
            service.fillTasks(31);
            tasks->RefreshCurrentTaskInfo(true);
            ASSERT_TRUE(QTest::qWaitFor([&] { return tasks->totalPage() == 3; }));
            tasks->lastPage();
            ModalWindow::run([&] { tasks->AddTask(); },
                             [&](ModalWindow& window) {
                                 EXPECT_EQ(window.dialog()->minimumSize(), QSize(1040, 880));
                                 window.compose("zhu", "柱钢筋");
                                 choose(window, "交底人：", [](ModalWindow& picker) {
                                     picker.click(picker.text("李娜(lina)"));
                                     picker.click(picker.text("确定"));
                                 });
                                 choose(window, "接受交底人：", [](ModalWindow& picker) {
                                     EXPECT_FALSE(picker.text("李娜(lina)")) << "nobody briefs themselves";
                                     picker.click(picker.text("noname"));
                                     picker.key(Qt::Key_Space);
                                     picker.click(picker.text("确定"));
                                 });
                                 enter(window, "截止日期：", QDate::currentDate().toString("yyyy-MM-dd"));
                                 service.chosenFile = L"方案.pdf";
                                 window.click(window.text("本地上传"));
                                 for (const char* later : {"关联模型", "关联资料库"})
                                     EXPECT_FALSE(window.text(later)->childItems().first()->isEnabled());
                                 window.click(window.text("发布交底"));
                                 EXPECT_TRUE(window.find("value", "柱钢筋"));
                                 service.refused.clear();
                                 const QPoint place = window.text("发布交底")->mapToScene({5, 5}).toPoint();
                                 for (int click = 0; click < 2; ++click)  // a double click saves once
                                     QTest::mouseClick(window.view(), Qt::LeftButton, {}, place);
                             });
            EXPECT_EQ(tasks->currentPage(), 1) << "where the latest change stands";
            EXPECT_EQ(service.saves.size(), 2u) << "one was refused";
            EXPECT_EQ(service.saves.back().disclosureCatalogId, L"mep");
            EXPECT_EQ(std::count(service.calls.begin(), service.calls.end(), L"log 发布交底 技术→交底管理→发布交底"),
                      1);
            EXPECT_TRUE(list.text("机电(6)"));
        });
}

TEST_F(Editor, ShowsAndChangesATaskOfTheList) {
    TaskRecord task = wholeTask();
    for (const wchar_t* name : {L"图纸.dwg", L"照片.png"})
        task.disclosureTaskDocList.push_back({name, L"t0", 0, name, L"uuid", L"md5", 9, L"", 1, L""});
    service.tasks = {task};
    TaskManagerViewModel list;
    list.setCatalogId("base");
    auto* timer = list.findChild<QTimer*>();
    ASSERT_TRUE(QTest::qWaitFor([timer] { return !timer->isActive(); }));
    const auto modify = [&list] { list.ModifyTask(list.taskModel()->task_list()->at(0)); };

    service.queries.clear();
    ModalWindow::run(modify, [&](ModalWindow& window) {
        EXPECT_TRUE(window.find("value", "李娜、离职者")) << "who has left the department stays named";
        window.click(window.text("梁柱节点"));
        const QQuickItem* row = window.text("梁柱节点")->parentItem();
        EXPECT_GT(row->x(), 0);
        EXPECT_EQ(row->childItems().first()->width(), row->width() + row->x()) << "the indentation is highlighted too";
        window.key(Qt::Key_Delete);
        EXPECT_FALSE(window.text("梁柱节点"));
        choose(window, "交底人：", [](ModalWindow& picker) {
            EXPECT_TRUE(picker.text("noname"));
            EXPECT_FALSE(picker.text("李娜(lina)")) << "a receiver";
        });
        choose(window, "接受交底人：", [](ModalWindow& picker) {
            for (const char* person : {"李娜(lina)", "李娜(lina)", "noname"}) {
                picker.click(picker.text(person));
                picker.key(Qt::Key_Space);
            }
            picker.click(picker.text("确定"));
        });
        enter(window, "施工开始日期：", "2024-03-02");
        enter(window, "施工结束日期：", "2024-03-01");
        EXPECT_TRUE(window.find("value", "2024-03-02"));
        window.click(window.text("保存计划"));
        for (int told = 0; told < 2; ++told)
            EXPECT_EQ(host.messages.takeLast(), "日期不能早于2024-03-02") << "an end before the start is not saved";
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
        QQuickItem* remark = window.find("maxlength", 300);
        remark->forceActiveFocus();
        window.key(Qt::Key_End, Qt::ControlModifier);
        window.compose("p", QString(400, 'x'));
        window.click(window.text("保存计划"));
    });
    ASSERT_EQ(service.updates.size(), 1u);
    EXPECT_EQ(service.updates[0].disclosureTaskNodeList.size(), 1u);
    EXPECT_EQ(service.updates[0].constructionStartDateMills, mills(QDate(2024, 3, 2)));
    EXPECT_EQ(service.updates[0].constructionEndDateMills, mills(QDate(2024, 3, 5)));
    EXPECT_EQ(service.updates[0].planDisclosureDateMills, mills(QDate(2024, 3, 6)));
    EXPECT_EQ(service.updates[0].expiryDateMills, mills(QDate(2124, 3, 7)));
    const auto& receivers = service.updates[0].disclosureTaskReceiveUserList;
    ASSERT_EQ(receivers.size(), 3u);
    EXPECT_EQ(receivers[0].id + receivers[1].id, L"r2r1") << "who was taken out and chosen again is the same";
    EXPECT_EQ(receivers[2].id.size(), 36u);
    ASSERT_EQ(service.updates[0].disclosureTaskDocList.size(), 2u);
    EXPECT_EQ(service.updates[0].disclosureTaskDocList[1].name, L"照片.png");
    EXPECT_EQ(service.updates[0].remark, L"三层" + std::wstring(298, L'x'));
    ASSERT_TRUE(QTest::qWaitFor([timer] { return !timer->isActive(); }));
    EXPECT_EQ(service.queries.size(), 0u) << "the row stays where it is";
    EXPECT_EQ(list.taskModel()->task_list()->at(0)->property("start_show"), "2024-03-02");

    service.tasks[0].name = L"他人改名";
    ModalWindow::run(modify,
                     [](ModalWindow& window) { EXPECT_TRUE(window.find("value", "他人改名")) << "not the old row"; });
    service.tasks[0].isPublish = 1;
    ModalWindow::expectNone(modify);
    EXPECT_EQ(host.messages, QStringList{"已发布的任务暂不支持编辑"}) << "published since the row was read";
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.taskModel()->task_list()->at(0)->released(); }));

    host.core.managers.erase(BASECORE::NAMES::kDisclosure);
    ModalWindow::expectNone([&] { EXPECT_FALSE(CAddTaskWnd::edit(task)); });
}
