#include <gtest/gtest.h>

#include <QDialog>
#include <QQuickItem>
#include <QTest>

#include "commands/DisclosureManage/ui/document/ConnectDocModel.h"
#include "commands/DisclosureManage/ui/task/AddTaskWnd.h"
#include "commands/DisclosureManage/ui/task/EditDocWnd.h"
#include "tests/commands/FakeEditor.h"
#include "tests/commands/TaskWindow.h"
#include "tests/support/FakeDocuments.h"

using DISCLOSUREPACKAGE::TaskDocRecord;
using DISCLOSUREPACKAGE::TaskRecord;

namespace {

class EditDoc : public testing::Test {
protected:
    EditDoc() {
        host.window.resize(1300, 1000);
        service.chosenFile = L"照片.png";
        store.fill(20);
        task = wholeTask();  // with one upload
        task.deptId = L"other";
        task.updateDateMills = 1;
    }

    /// A link to the store's document of that number.
    static TaskDocRecord link(int number, const std::wstring& uuid) {
        const std::wstring digits = std::to_wstring(number);
        return {L"link" + digits, L"t0", 3, L"资料" + digits + L".pdf", uuid, L"m" + uuid, 9, L"pdf", 0, L"d" + digits};
    }
    /// Opens the link editor, or the editor, and does `steps`.
    void edit(const ModalWindow::Steps& steps, bool isEditor = false) {
        ModalWindow::run([&] { isEditor ? CAddTaskWnd::edit(task) : CEditDocWnd::edit(task); }, steps);
    }
    /// Toggles the documents in these rows of the picker and accepts.
    static void pick(ModalWindow& window, std::initializer_list<int> rows) {
        const auto open = [&] { window.click("关联资料库"); };
        ModalWindow::run(open, [&](ModalWindow& picker) {
            auto* model = qobject_cast<CConnectDocModel*>(picker.context("connectDocMode"));
            ASSERT_TRUE(QTest::qWaitFor([&] { return model->fileListModel() != nullptr; }));
            for (const int number : rows) {
                CFileModel* row = model->fileListModel()->task_list()->at(number);
                row->setSelected(!row->selected());
            }
            picker.click("确定");
        });
    }
    static void upload(ModalWindow& window) { window.click("本地上传"); }
    /// Presses the button of that tool tip in the row of a document.
    static void press(ModalWindow& window, const QString& name, const char* tip) {
        QQuickItem* row = window.find("name", name);
        window.click(support::findItem(row, support::has("tooltipText", tip)));
    }
    static QString ids(const TaskRecord& saved) {
        QStringList texts;
        for (const TaskDocRecord& doc : saved.disclosureTaskDocList)
            texts << QString::fromStdWString((doc.id.size() == 36 ? L"new" : doc.id) + L":" + doc.uuid);
        return texts.join(' ');
    }

    support::ScreenHost host;
    support::FakeDisclosureMgr& service = host.manager;
    support::FakeDocuments store{host.core};
    TaskRecord task;
};

}  // namespace

TEST_F(EditDoc, SavesWhatWasKeptAddedAndRemoved) {
    task.disclosureTaskDocList = {link(0, L"u0"), task.disclosureTaskDocList[0], link(1, L"older"), link(2, L"u2")};
    task.disclosureTaskDocList[0].name = L"<b>粗</b>&.pdf";
    store.files[2].file.isDeleted = true;
    service.tasks = {task};
    TaskManagerViewModel list;
    list.setCatalogId("base");
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.taskModel() != nullptr; }));
    const auto open = [&] { list.onEditDocInfo(list.taskModel()->task_list()->at(0)); };
    ModalWindow::run(open, [&](ModalWindow& window) {
        const QStringList shown{"<b>粗</b>&.pdf", "方案.pdf", "资料1.pdf（有新版本）", "资料2.pdf（已删除）"};
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.text(shown[2]) && window.text(shown[3]); }));
        EXPECT_EQ(window.text(shown[0])->property("textFormat").toInt(), 0);
        for (const int row : {0, 1})
            press(window, shown[row], "查看");
        EXPECT_EQ(store.calls.end()[-2] + store.calls.back(),
                  L"open u0 mu0 <b>粗</b>&.pdf in otheropen uuid md5 方案.pdf in other");
        press(window, shown[0], "删除");
        pick(window, {4});
        upload(window);
        service.refused = L"update";
        window.click("确定");
        service.refused.clear();
        host.core.managers.erase(BASECORE::NAMES::kDisclosure);
        window.click("确定");
        EXPECT_TRUE(window.text("资料5.pdf")) << "what fails leaves all as it is";
        host.add(service);
        const QPoint place = window.text("确定")->mapToScene({5, 5}).toPoint();
        for (int click = 0; click < 2; ++click)  // a double click saves once
            QTest::mouseClick(window.view(), Qt::LeftButton, {}, place);
    });
    ASSERT_EQ(service.updates.size(), 2u) << "one was refused";
    EXPECT_EQ(ids(service.updates[1]), "d1:uuid link1:older link2:u2 new:u5 file1:uuid1");
    EXPECT_EQ(service.updates[0].disclosureTaskDocList[3].id, service.updates[1].disclosureTaskDocList[3].id);
    EXPECT_EQ(service.updates[1].name, task.name);
    EXPECT_TRUE(list.taskModel()->task_list()->at(0)->property("relFiles").toString().contains("照片.png"));

    ModalWindow::run(open, [](ModalWindow& window) { window.click("确定"); });
    EXPECT_EQ(service.updates.size(), 2u) << "nothing was changed";
    service.tasks[0].isPublish = 1;
    ModalWindow::expectNone(open);
    service.refused = L"read";
    service.unsaid = L"服务无法连接";
    ModalWindow::expectNone(open);
    EXPECT_EQ(host.messages, QStringList({"已发布的任务暂不支持编辑", "打开任务未完成：服务无法连接"}));
}

TEST_F(EditDoc, AsksBeforeAChangeIsLost) {
    for (const bool isKey : {true, false}) {
        host.messages.clear();
        host.answer = BASEUI::MessageResult::Cancel;
        edit([&](ModalWindow& window) {
            window.click("方案.pdf");
            window.key(Qt::Key_Delete);
            for (const auto answer : {BASEUI::MessageResult::Cancel, BASEUI::MessageResult::Ok}) {
                host.answer = answer;
                if (isKey)
                    window.key(Qt::Key_Escape);
                else
                    window.dialog()->close();
                EXPECT_EQ(window.dialog()->isVisible(), answer == BASEUI::MessageResult::Cancel);
            }
        });
        EXPECT_EQ(host.messages.size(), 2);
    }
    EXPECT_TRUE(service.updates.empty());
    ModalWindow::expectNone([&] { EXPECT_FALSE(CEditDocWnd::edit(TaskRecord())); });
}

TEST_F(EditDoc, ElevenAreRefusedInEveryWay) {
    const auto pickOne = [](ModalWindow& window) { pick(window, {12}); };
    const auto both = [](ModalWindow& window) {
        pick(window, {12});
        upload(window);
    };
    const struct {
        int stored, uploaded;
        std::function<void(ModalWindow&)> hand;
        bool isTold, isSaved;
    } rows[] = {
        {4, 5, pickOne, false, true}, {5, 4, upload, false, true},   {5, 5, pickOne, true, false},
        {5, 5, upload, true, true},  // before it is chosen, so that the ten that are there can be saved
        {4, 5, both, true, true},     {0, 10, pickOne, true, false},
    };
    for (const auto& row : rows)
        for (const bool isEditor : {false, true}) {
            task.disclosureTaskDocList.clear();
            for (int i = 0; i < row.stored + row.uploaded; ++i) {
                task.disclosureTaskDocList.push_back(link(i, L"u" + std::to_wstring(i)));
                task.disclosureTaskDocList.back().sourceType = i < row.stored ? 0 : 1;
            }
            service.tasks = {task};
            service.updates.clear();
            host.messages.clear();
            edit(
                [&](ModalWindow& window) {
                    row.hand(window);
                    window.click(isEditor ? "保存计划" : "确定");
                    EXPECT_EQ(host.messages, row.isTold ? QStringList{"最多可关联10份资料"} : QStringList());
                },
                isEditor);
            for (const TaskRecord& saved : service.updates)
                EXPECT_EQ(saved.disclosureTaskDocList.size(), 10u);
            if (!row.isSaved || isEditor) {  // the link editor does not save where nothing has changed
                EXPECT_EQ(service.updates.size(), row.isSaved ? 1u : 0u);
            }
        }
}

TEST_F(EditDoc, ANotchOfTheWheelIsATenthOfWhatCanBeScrolled) {
    for (int i = 0; i < 15; ++i)
        task.disclosureTaskDocList.push_back(link(i, L"u"));
    edit([](ModalWindow& window) {
        QQuickItem* list = window.find("currentIndex", -1);
        const qreal range = list->property("contentHeight").toReal() - list->height();
        ASSERT_GT(range, 0);
        const QPointF place = list->mapToScene({20, 20});
        for (const auto& [angle, top] : {std::pair(-120, range / 10), {-1200, range}, {2400, 0.0}}) {
            QWheelEvent wheel(place, window.view()->mapToGlobal(place.toPoint()), {}, {0, angle}, {}, {}, {}, false);
            QCoreApplication::sendEvent(window.view(), &wheel);
            EXPECT_NEAR(list->property("contentY").toReal(), top, 0.01) << angle;
        }
    });
}

TEST_F(EditDoc, ChangesAreMadeOnWhatOthersSaved) {
    task.disclosureTaskDocList = {link(0, L"u0"), link(1, L"u1"), link(2, L"u2")};
    TaskRecord present = task;
    present.updateDateMills = QDateTime(QDate(2024, 2, 29), QTime(9, 5)).toMSecsSinceEpoch();
    present.updateBy = L"lina";
    present.name = L"他人改名";
    present.disclosureTaskDocList = {link(1, L"newer"), link(2, L"u2"), link(6, L"u6")};
    present.disclosureTaskDocList[2].id = L"theirs";
    service.tasks = {present};
    const QString change = "任务已由李娜于2024-02-29 09:05修改";
    edit([&](ModalWindow& window) {
        press(window, "资料2.pdf", "删除");
        pick(window, {5, 6});
        window.click("确定");
        EXPECT_TRUE(window.text(change + "。再次确定即在其上保存您的改动。"));
        EXPECT_TRUE(host.messages.isEmpty()) << "the host has shown the refusal";
        window.click("确定");
        EXPECT_FALSE(window.dialog()->isVisible());
    });
    EXPECT_EQ(service.updates.back().name, L"他人改名");
    EXPECT_EQ(ids(service.updates.back()), "link1:newer theirs:u6 new:u5") << "one document is linked once";

    present.isPublish = 1;
    service.tasks = {present};
    edit([&](ModalWindow& window) {
        press(window, "资料0.pdf", "删除");
        window.click("确定");
        EXPECT_EQ(host.messages.takeLast(), change + "，并且已发布，不能再编辑。");
        EXPECT_FALSE(window.text("资料0.pdf")) << "what was done stays";
    });
}

TEST_F(EditDoc, TheEditorTakesAnotherContentOfADocument) {
    task.disclosureTaskDocList = {link(1, L"older")};
    service.tasks = {task};
    edit(
        [&](ModalWindow& window) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return window.text("资料1.pdf（有新版本）") != nullptr; }));
            pick(window, {1, 1});
            EXPECT_TRUE(window.text("资料1.pdf"));
            window.click("保存计划");
        },
        true);
    ASSERT_EQ(service.updates.size(), 1u);
    EXPECT_EQ(ids(service.updates[0]), "link1:u1");
}
