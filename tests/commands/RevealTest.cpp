#include <QApplication>

#include "plugin/entry/DisclosureMgrCmd.h"
#include "sdk/packages/disclosure/Command.h"
#include "tests/commands/TaskWindow.h"

namespace {

/// The main window when somebody sends the user to a task. All names are alike to the service here.
class Reveal : public TaskWindow {
protected:
    Reveal() : TaskWindow(40, {2000, 700}, {CAuthCodeTool::kEditTasks, CAuthCodeTool::kEditCatalogs}) {
        for (auto& task : service.tasks)
            task.deptId = L"dept";
    }

    void show(const char* taskId) {
        provider.ShowMainWindow(taskId);
        settle();
    }
    /// The id of the task in the table's current row.
    std::string current(const ModalWindow& window) const {
        const int row = currentRow(window);
        return row < 0 ? "" : task(row)->id().toStdString();
    }
};

}  // namespace

TEST_F(Reveal, SelectsTheTaskInItsCatalogOnWhateverPageItStands) {
    run("t37", [&](ModalWindow& window) {
        EXPECT_EQ(catalog(), "基础");
        EXPECT_TRUE(window.text("基础(4)")) << "what lies above is open";
        EXPECT_EQ(service.queries.back().keyword, L"任务37");
        EXPECT_EQ(service.queries.back().disclosureCatalogId, L"base");
        EXPECT_EQ(list->currentPage(), 3);
        EXPECT_EQ(current(window), "t37");
        EXPECT_TRUE(window.find("placeholderText", "请输入名称进行搜索")->property("text") == "任务37");
        const std::size_t before = service.queries.size();
        list->RefreshCurrentTaskInfo(false);
        settle();
        EXPECT_EQ(service.queries.size(), before) << "the page shown is the answer to the query";
        window.key(Qt::Key_Up);
        EXPECT_EQ(current(window), "t36") << "the table has the keyboard";
    });
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(Reveal, ScrollsToTheTaskAndItsCatalog) {
    host.window.resize(2000, 420);
    for (int i = 0; i < 60; ++i)
        service.catalogs.push_back({L"c" + std::to_wstring(i), L"目录" + std::to_wstring(i), L"civil", 0, 2 + i});
    service.tasks[14].disclosureCatalogId = L"c59";
    const auto showsWithin = [](QQuickItem* view, const QString& text) {
        const QQuickItem* item = support::findItem(view, support::has("text", text));
        return item && item->mapToItem(view, {0, 0}).y() >= 0 &&
               item->mapToItem(view, {0, item->height()}).y() <= view->height();
    };
    run("t14", [&](ModalWindow& window) {
        EXPECT_TRUE(showsWithin(window.find("checkStateRole", "selected"), "任务14"));
        EXPECT_TRUE(showsWithin(window.find("initialExpandAll", false), "目录59(0)"));
    });
}

TEST_F(Reveal, AnOpenWindowLeavesWhatWasSearched) {
    run({}, [&](ModalWindow& window) {
        service.tasks[3].disclosureCatalogId = L"mep";
        list->setSearchText("柱");
        list->setSearchTaskStatus(2);
        list->sortByColumn("任务名称", 2);
        settle();
        for (const char* id : {"t3", "t5", "t3"}) {
            show(id);
            EXPECT_EQ(current(window), id);
        }
        EXPECT_EQ(catalog(), "机电");
        EXPECT_EQ(service.queries.back().status, -1);
        EXPECT_EQ(service.queries.back().orderKey, L"");
        // Without another search nothing is looked for any more.
        list->setSearchText("任务");
        settle();
        EXPECT_EQ(current(window), "");

        service.catalogs.push_back({L"new", L"新目录", L"frame", 1, 0});
        service.tasks[5].disclosureCatalogId = L"new";
        show("t5");
        EXPECT_TRUE(window.text("新目录(1)")) << "newer than the tree";
        EXPECT_EQ(catalog() + current(window), "新目录t5");
    });
}

TEST_F(Reveal, TypedInputStays) {
    run({}, [&](ModalWindow& window) {
        window.click("土建(7)").key(Qt::Key_Insert).type("门窗");
        show("t3");
        EXPECT_TRUE(window.text("门窗"));
        EXPECT_EQ(catalog(), "土建");
        window.key(Qt::Key_Escape);

        ModalWindow::run([this] { list->AddTask(); },
                         [&](ModalWindow& editor) {
                             editor.type("新任务");
                             show("t3");
                             EXPECT_TRUE(QApplication::activeModalWidget() == editor.dialog());
                             EXPECT_TRUE(editor.text("新任务"));
                             EXPECT_EQ(catalog(), "土建");
                         });
        show("t3");
        EXPECT_EQ(current(window), "t3");
    });
}

TEST_F(Reveal, SaysOnceWhyATaskCannotBeShown) {
    const auto messages = [this](const char* taskId) {
        run(taskId, [&](ModalWindow&) { EXPECT_EQ(catalog(), "全部"); });
        return host.told();
    };
    EXPECT_EQ(messages("nowhere"), "") << "the host has shown the refusal";
    service.tasks[0].disclosureCatalogId = L"gone";
    EXPECT_EQ(messages("t0"), "任务不存在或已被删除");

    service.tasks[0].deptId = L"other";
    service.tasks[0].deptName = L"第二项目部";
    EXPECT_EQ(messages("t0"), "任务“任务0”属于部门“第二项目部”，无法在当前项目中打开");
}

TEST_F(Reveal, ATaskThatTheListDoesNotHaveIsLookedForOnAFewPagesOnly) {
    service.fillTasks(15 * 30);
    service.tasks.back().id = L"last";
    run("last", [&](ModalWindow& window) {
        EXPECT_EQ(list->currentPage(), 1);
        EXPECT_EQ(task(0)->id(), "t0");
        EXPECT_EQ(current(window), "");
        EXPECT_LE(service.queries.size(), 25U);
        EXPECT_EQ(host.told(), "在目录中没有找到任务“任务449”");
        EXPECT_EQ(list->searchText(), "");
    });
}

TEST_F(Reveal, TheCommandsParameterCountsOnce) {
    DISCLOSUREPACKAGE::CDisclosureMgrCmd command;
    const std::pair<boost::any, const char*> parameters[] = {
        {std::wstring(L"t3"), "t3"}, {boost::any(), ""}, {std::string("t3"), ""}};
    for (const auto& [parameter, expected] : parameters) {
        if (!parameter.empty())
            command.SetParam(DISCLOSUREPACKAGE::kParamTaskId, parameter);
        ModalWindow::run([&] { command.RunCommand(); },
                         [&](ModalWindow& window) {
                             look(window);
                             EXPECT_EQ(current(window), expected);
                         });
        EXPECT_TRUE(command.GetParam(DISCLOSUREPACKAGE::kParamTaskId).empty());
    }
}
