#include "sdk/packages/ICasMgr.h"
#include "sdk/packages/IKpxClientConfigMgr.h"
#include "tests/commands/TaskWindow.h"

namespace {

using BASECORE::FRAME::CMgrObject;

class FakeConfig : public CMgrObject, public PROJECTPACKAGE::IKpxClientConfigMgr {
public:
    FakeConfig() : CMgrObject(BASECORE::NAMES::kClientConfig) {}
    std::wstring GetValue(const std::wstring& key) const override { return values.count(key) ? values.at(key) : L""; }
    bool SetValue(const std::wstring& key, const std::wstring& value) override {
        values[key] = value;
        return true;
    }

    std::map<std::wstring, std::wstring> values;
};

class FakeLogin : public CMgrObject, public BASEPACKAGE::ICasMgr {
public:
    FakeLogin() : CMgrObject(BASECORE::NAMES::kAuthentication) {}
    std::wstring GetUserName() const override { return user; }
    std::wstring GetRealName() const override { return user; }

    std::wstring user = L"demo";
};

class TaskTable : public TaskWindow {
protected:
    TaskTable() : TaskWindow(5, {2000, 1000}, {CAuthCodeTool::kEditTasks, CAuthCodeTool::kDeleteTasks}) {
        service.tasks[1].isPublish = 1;
        host.add(config);
        host.add(login);
    }

    static QVariant call(QObject* object, const char* function, const QVariant& argument) {
        QVariant result;
        QMetaObject::invokeMethod(object, function, Q_RETURN_ARG(QVariant, result), Q_ARG(QVariant, argument));
        return result;
    }
    static QObject* column(const ModalWindow& window, int position) {
        return call(table(window), "getColumn", position).value<QObject*>();
    }
    static QStringList titles(const ModalWindow& window) {
        QStringList shown;
        for (int position = 1; position < table(window)->property("columnCount").toInt(); ++position)
            shown << column(window, position)->property("title").toString();
        return shown;
    }
    static QQuickItem* menuItem(const ModalWindow& window, const QString& text) {
        return window.find(
            [&](QQuickItem* item) { return item->property("text") == text && item->inherits("QQuickMenuItem"); });
    }

    FakeConfig config;
    FakeLogin login;
};

}  // namespace

TEST_F(TaskTable, EachDateCellSetsItsOwnDateInsideItsLimits) {
    using Record = DISCLOSUREPACKAGE::TaskRecord;
    const auto mills = [](int day) { return QDate(2024, 3, day).startOfDay().toMSecsSinceEpoch(); };
    for (auto& task : service.tasks) {
        task.constructionStartDateMills = mills(10);
        task.constructionEndDateMills = mills(20);
    }
    const std::tuple<const char*, int64_t Record::*, const char*, const char*> columns[] = {
        {"施工开始日期", &Record::constructionStartDateMills, "", "2024-03-20"},
        {"施工结束日期", &Record::constructionEndDateMills, "2024-03-15", ""},
        {"计划交底日期", &Record::planDisclosureDateMills, "", ""}};
    run([&](ModalWindow& window) {
        for (const auto& [title, field, minimum, maximum] : columns) {
            QQuickItem* cell = support::findItem(table(window), [&title = title](QQuickItem* item) {
                const auto* task = item->property("task").value<TaskModel*>();
                return item->property("column") == title && task && task->id() == "t0";
            });
            ASSERT_TRUE(cell) << title;
            EXPECT_EQ(cell->property("minimumDate").toString(), minimum) << title;
            EXPECT_EQ(cell->property("maximumDate").toString(), maximum) << title;
            Record expected = service.tasks[0];
            expected.*field = mills(15);
            QMetaObject::invokeMethod(cell, "picked", Q_ARG(QString, "2024-03-15"));
            const Record& sent = service.updates.back();
            for (const auto& [other, member, least, most] : columns)
                EXPECT_EQ(sent.*member, expected.*member) << title << " / " << other;
            EXPECT_EQ(sent.id, L"t0");
            settle();
        }
    });
}

TEST_F(TaskTable, TheMenuOfARowDoesWhatTheToolBarDoes) {
    run([&](ModalWindow& window) {
        const auto choose = [&](const char* row, const char* entry) {
            window.click(row, Qt::RightButton).click(menuItem(window, entry));
            settle();
        };
        choose("任务1", "重命名");
        choose("任务1", "编辑");
        EXPECT_EQ(host.told(), "已发布的任务暂不支持编辑|已发布的任务暂不支持编辑");
        task(2)->setSelected(true);
        task(4)->setSelected(true);
        choose("任务3", "删除");
        EXPECT_EQ(std::count(service.calls.begin(), service.calls.end(), L"remove t3"), 1) << "only the row itself";
        window.click("任务4").key(Qt::Key_Menu).click("删除选中的2条");
        settle();
        EXPECT_EQ(service.tasks.size(), 2u) << "of checked rows all";
    });
    host.grant({});
    run([&](ModalWindow& window) {
        window.click("任务1", Qt::RightButton);
        for (const char* entry : {"编辑", "重命名", "移动", "导出", "删除"})
            EXPECT_FALSE(menuItem(window, entry)->isEnabled()) << entry;
    });
}

TEST_F(TaskTable, ColumnsAreKeptForEachUserAndPublishedTasksAreToldApart) {
    QStringList order;
    run([&](ModalWindow& window) {
        for (const auto& [name, released] : {std::pair("任务0", false), {"任务1", true}})
            EXPECT_TRUE(support::findItem(window.text(name), support::has("released", released))) << name;
        order = titles(window);
        EXPECT_EQ(order, (QStringList{"序号", "任务名称", "关联BIM", "关联资料", "施工开始日期", "施工结束日期",
                                      "计划交底日期", "交底人", "实际交底日期", "预览", "状态", "操作", "更新时间",
                                      "更新人"}));
        column(window, 2)->setProperty("width", 333);
        QMetaObject::invokeMethod(table(window), "moveColumn", Q_ARG(QVariant, 2), Q_ARG(QVariant, 5));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !config.values.empty(); }));
        list->sortByColumn("任务名称", 1);
        EXPECT_TRUE(call(table(window), "sortedAt", 5).toBool());
    });
    for (const auto& [user, moved] : {std::pair(L"demo", true), {L"a/b 甲", false}, {L"demo", true}}) {
        login.user = user;
        run([&](ModalWindow& window) {
            QStringList expected = order;
            if (moved)
                expected.move(1, 4);
            EXPECT_EQ(titles(window), expected);
            EXPECT_EQ(column(window, moved ? 5 : 2)->property("width"), moved ? 333 : 170);
        });
    }
    ASSERT_EQ(config.values.size(), 1u);
    for (const wchar_t* strange : {L"{", L"[1,null]", L"[[\"none\",9],[\"name\",1e9],[\"owner\",-1]]"}) {
        config.values.begin()->second = strange;
        run([&](ModalWindow& window) { EXPECT_EQ(titles(window).size(), order.size()); });
    }
}
