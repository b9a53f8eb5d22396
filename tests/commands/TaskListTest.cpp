#include <limits>

#include "tests/commands/TaskWindow.h"

namespace {

using Query = DISCLOSUREPACKAGE::TaskQuery;
using Record = DISCLOSUREPACKAGE::TaskRecord;

int64_t mills(int year, int month, int day, QTime time = QTime(0, 0)) {
    return QDateTime(QDate(year, month, day), time).toMSecsSinceEpoch();
}

class TaskList : public testing::Test {
protected:
    TaskList() {
        service.fillTasks(31);
        QObject::connect(&list, &TaskManagerViewModel::taskCountChange,
                         [this](int count, const QString& id) { counts << QString("%1 %2").arg(id).arg(count); });
        list.setCatalogId("base");
        settle();
    }
    void settle() { awaitRefresh(list); }
    void reread() {
        list.RefreshCurrentTaskInfo(true);
        settle();
    }
    /// Does it, and tells how many queries that cost.
    std::size_t queriesOf(const std::function<void()>& act) {
        service.queries.clear();
        act();
        settle();
        settle();
        return service.queries.size();
    }
    /// "page of pages: rows from first row's name", as the list shows them.
    std::string page() const {
        return std::to_string(list.currentPage()) + " of " + std::to_string(list.totalPage()) + ": " +
               std::to_string(rowCount()) + (rowCount() ? " from " + shown(0, "name").toStdString() : "");
    }
    int rowCount() const { return list.taskModel()->task_list()->size(); }
    TaskModel* row(int index) const { return list.taskModel()->task_list()->at(index); }
    QString shown(int index, const char* property) const { return row(index)->property(property).toString(); }
    const Query& lastQuery() const { return service.queries.back(); }

    support::ScreenHost host;
    support::FakeDisclosureMgr& service = host.manager;
    QStringList counts;
    TaskManagerViewModel list;
};

TEST_F(TaskList, ShowsThePageOfTheCatalog) {
    EXPECT_EQ(lastQuery().deptId + L" " + lastQuery().disclosureCatalogId, L"dept base");
    EXPECT_EQ(describe(lastQuery()), "-1 -1 -/-  p1x15");
    EXPECT_EQ(lastQuery().startDateMills, -1);
    EXPECT_EQ(lastQuery().endDateMills, -1);
    EXPECT_EQ(page(), "1 of 3: 15 from 任务0");
    EXPECT_EQ(shown(14, "name"), "任务14");
    EXPECT_EQ(host.people.reads, 1) << "once a refresh, not once a row";
    EXPECT_EQ(shown(0, "catalog_path"), "") << "it lies in the listed catalog";
    list.setCatalogPath([](const QString& id) { return "土建 / " + id; });
    list.setCatalogId("all");
    settle();
    EXPECT_EQ(shown(0, "catalog_path"), "土建 / base");
}

TEST_F(TaskList, PagesStayWithinTheirNumber) {
    list.prevPage();
    settle();
    EXPECT_EQ(page(), "1 of 3: 15 from 任务0");
    list.lastPage();
    list.nextPage();
    settle();
    EXPECT_EQ(page(), "3 of 3: 1 from 任务30");
    EXPECT_EQ(queriesOf([&] { list.setItemsPerPage(30); }), 1u) << "page and size cost one query";
    EXPECT_EQ(page(), "2 of 2: 1 from 任务30");

    service.fillTasks(16);  // the page is gone
    int rowsAtCount = -1;
    QObject::connect(&list, &TaskManagerViewModel::totalCountChanged, [&] { rowsAtCount = rowCount(); });
    reread();
    settle();
    EXPECT_EQ(page(), "1 of 1: 16 from 任务0");
    service.fillTasks(3);
    reread();
    EXPECT_EQ(rowsAtCount, 3) << "rows come before their count";

    list.setItemsPerPage(0);
    list.setTotalCount(0);
    list.setCurrentPage(-3);
    list.setTotalPage(0);
    EXPECT_EQ(list.totalPage(), 1);
    EXPECT_EQ(list.currentPage(), 1);
    list.setItemsPerPage(15);
    list.setTotalCount(std::numeric_limits<int>::max());
    EXPECT_EQ(list.totalPage(), 143165577);
}

TEST_F(TaskList, AFailureLeavesThePageAndIsTriedAgain) {
    MapTaskModel* before = list.taskModel();
    service.refused = L"page";
    list.setItemsPerPage(30);
    list.nextPage();
    settle();
    EXPECT_EQ(list.taskModel(), before);
    EXPECT_EQ(list.itemsPerPage(), 15);
    EXPECT_EQ(page(), "1 of 3: 15 from 任务0");
    EXPECT_EQ(list.shownCount(), 31);
    EXPECT_TRUE(list.reading()->isFailed() && !list.reading()->covers());
    list.nextPage();
    settle();
    service.refused.clear();
    EXPECT_EQ(queriesOf([&] { list.nextPage(); }), 1u) << "a failed query is forgotten";
    EXPECT_EQ(page(), "2 of 3: 15 from 任务15");
    EXPECT_TRUE(list.reading()->text().isEmpty());

    service.refused = L"page";
    list.setSearchTaskStatus(2);
    list.setCurrentPage(1);
    settle();
    EXPECT_EQ(page(), "1 of 3: 15 from 任务15") << "the other status begins at its first page when it is tried again";
    service.unsaid = L"服务没有按时应答";
    list.setCatalogId("frame");
    EXPECT_EQ(list.shownCount(), -1) << "not 0: nobody knows";
    settle();
    EXPECT_EQ(rowCount(), 0) << "rows of another catalog are no answer";
    EXPECT_EQ(list.shownCount(), -1);
    EXPECT_EQ(list.reading()->text(), "未能读取：服务没有按时应答");
    EXPECT_TRUE(list.reading()->covers());
}

TEST_F(TaskList, SaysWhyThereIsNothing) {
    service.tasks.clear();
    list.setSearchText("柱");
    list.setSearchTaskStatus(2);
    list.chooseDateRange(7);
    settle();
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    EXPECT_EQ(list.reading()->text(), "没有符合条件的任务：名称含“柱”，状态为已交底，" + today + "至" + today);
    EXPECT_TRUE(list.reading()->isExcluded());
    list.clearFilters();
    settle();
    EXPECT_EQ(describe(lastQuery()), "0 -1 -/-  p1x15");
    EXPECT_EQ(list.reading()->text(), "此目录下没有任务");
    EXPECT_FALSE(list.reading()->isExcluded());
    EXPECT_EQ(list.shownCount(), 0);

    list.setCatalogId("");
    EXPECT_EQ(queriesOf([&] { reread(); }), 0u) << "without a catalog the whole department would be listed";
    EXPECT_TRUE(list.reading()->isUnread());
}

TEST_F(TaskList, TasksStayCheckedOverThePagesOfOneSearch) {
    row(1)->setSelected(true);
    list.nextPage();
    settle();
    row(2)->setSelected(true);
    list.sortByColumn("任务名称", 2);
    list.firstPage();
    settle();
    EXPECT_TRUE(row(1)->selected());
    EXPECT_EQ(list.checkedCount(), 2);
    host.answer = BASEUI::MessageResult::Cancel;
    list.OnDelTasks({1});
    EXPECT_EQ(host.told(), "是否删除？删除后，不能恢复数据。\n共2个任务，其中1个在其他页?");
    EXPECT_EQ(list.checkedCount(), 2);

    // Of what is done, nothing stays checked; of what is refused, everything.
    host.answer = BASEUI::MessageResult::Ok;
    service.refused = L"remove";
    list.OnDelTasks({1});
    EXPECT_EQ(list.checkedCount(), 2);
    service.refused = L"task t17";
    list.moveTasksTo("frame", {1});
    settle();
    EXPECT_EQ(list.checkedCount(), 1);
    service.refused.clear();
    list.OnDelTasks({});
    settle();
    EXPECT_EQ(service.tasks.size(), 30u);
    EXPECT_EQ(list.checkedCount(), 0);
    row(0)->setSelected(true);
    list.nextPage();
    settle();
    list.setSearchText("柱");
    settle();
    EXPECT_EQ(list.checkedCount(), 0) << "another search hides what was checked";
    row(0)->setSelected(true);
    list.uncheckAll();
    EXPECT_EQ(list.checkedCount(), 0);
}

TEST_F(TaskList, AnEditedRowKeepsItsPlace) {
    QObject::connect(&list, &TaskManagerViewModel::done, [this](const QString& what) { counts << what; });
    const TaskModel* edited = row(6);
    const auto edit = [&] {
        EXPECT_TRUE(list.onEditDate("2024-02-29", "计划交底日期", row(6)));
        service.tasks[6].remark = L"他人的备注";  // a later version than the page's
        EXPECT_TRUE(list.onEditOwner("李娜", row(6)));
    };
    EXPECT_EQ(queriesOf(edit), 0u);
    EXPECT_EQ(row(6), edited);
    EXPECT_EQ(shown(6, "owner") + shown(6, "plan_show"), "李娜2024-02-29");
    EXPECT_EQ(service.updates.back().remark, L"他人的备注");
    EXPECT_EQ(counts, (QStringList{"任务“任务6”已保存", "任务“任务6”已保存"}));
}

TEST_F(TaskList, FailuresThatNobodyHasShownAreSaidOnce) {
    service.unsaid = L"服务无法连接";
    const auto move = [&] { list.moveTasksTo("frame", {0, 1}); };
    const std::tuple<const wchar_t*, std::function<void()>, const char*> commands[] = {
        {L"remove", [&] { list.OnDelTasks({0}); }, "删除"},
        {L"task", move, "移动"},
        {L"update", [&] { list.onEditOwner("李娜", row(0)); }, "修改"},
        {L"read", [&] { list.onEditOwner("李娜", row(0)); }, "修改"},
        {L"read", [&] { list.ModifyTask(row(0)); }, "打开任务"}};
    for (const auto& [call, command, what] : commands) {
        service.refused = call;
        host.messages.clear();
        command();
        EXPECT_EQ(host.messages.takeLast(), QString(what) + "未完成：服务无法连接");
        EXPECT_LE(host.messages.size(), 1) << "the question";
        settle();
    }
    EXPECT_TRUE(counts.isEmpty());
}

TEST_F(TaskList, AsksOnceForABurstAndTheSameAgainOnlyWhenForced) {
    const auto burst = [&] {
        list.setSearchText("柱");
        list.setSearchTaskStatus(2);
        list.setSearchEndDate("2024-02-29");
        list.setSearchDateLimit(false);
    };
    EXPECT_EQ(queriesOf(burst), 1u);
    EXPECT_EQ(lastQuery().keyword, L"柱");
    EXPECT_EQ(lastQuery().endDateMills, mills(2024, 2, 29, QTime(23, 59, 59, 999)));

    EXPECT_EQ(queriesOf([&] { list.RefreshCurrentTaskInfo(false); }), 0u);
    row(3)->setSelected(true);
    const auto force = [&] {
        list.RefreshCurrentTaskInfo(true);
        list.RefreshCurrentTaskInfo(false);
    };
    EXPECT_EQ(queriesOf(force), 1u);
    EXPECT_TRUE(row(3)->selected()) << "what was checked stays checked";
}

TEST_F(TaskList, OnlyAnotherCatalogStartsAfresh) {
    list.setSearchText("柱");
    list.setItemsPerPage(30);
    list.setCurrentPage(2);
    list.setSearchTaskStatus(1);
    list.setSearchDateLimit(false);
    list.sortByColumn("任务名称", 2);
    list.setCatalogId("base");
    settle();
    EXPECT_EQ(list.itemsPerPage(), 30);
    EXPECT_TRUE(list.searchAsc());

    list.setCatalogId("frame");
    EXPECT_EQ(list.totalCount(), 0);
    EXPECT_EQ(list.searchOrderColumn(), -1);
    settle();
    EXPECT_EQ(lastQuery().disclosureCatalogId, L"frame");
    EXPECT_EQ(describe(lastQuery()), "-1 -1 -/- 柱 p1x15");
}

TEST_F(TaskList, SortsByTheColumnsThatSort) {
    const std::tuple<const char*, int, const wchar_t*> clicks[] = {{"任务名称", 2, L"taskName ASC"},
                                                                   {"任务名称", 2, L"taskName DESC"},
                                                                   {"更新时间", 12, L"updateAt ASC"},
                                                                   {"状态", 11, L"updateAt ASC"}};
    for (const auto& [title, column, order] : clicks) {
        list.sortByColumn(title, column);
        settle();
        EXPECT_EQ(lastQuery().orderKey + L" " + lastQuery().orderType, order);
    }
    EXPECT_EQ(list.searchOrderColumn(), 12);
}

TEST_F(TaskList, DateChoicesSetTheFilter) {
    const QDate today = QDate::currentDate();
    list.chooseDateRange(7);
    EXPECT_FALSE(list.searchDateLimit());
    EXPECT_EQ(list.searchStartDate(), today.toString(Qt::ISODate));
    list.chooseDateRange(8);
    const QString tomorrow = today.addDays(1).toString(Qt::ISODate);
    EXPECT_EQ(list.searchEndDate(), tomorrow);
    list.chooseDateRange(15);
    EXPECT_EQ(list.searchStartDate(), tomorrow) << "what was typed stays";
    for (const char* wrong : {"", "2024-02-30", "1969-12-31"})
        list.setSearchStartDate(wrong);
    EXPECT_EQ(list.searchStartDate(), tomorrow);
    list.setSearchEndDate("2024-02-29");
    EXPECT_EQ(list.searchStartDate(), "2024-02-29");
    list.setSearchStartDate("2024-03-01");
    EXPECT_EQ(list.searchEndDate(), "2024-03-01");
    EXPECT_FALSE(list.searchDateLimit());
    list.chooseDateRange(0);
    EXPECT_TRUE(list.searchDateLimit());
}

TEST_F(TaskList, DeletesAfterAQuestion) {
    service.tasks[1].disclosureCatalogId = L"frame";
    reread();
    service.takeCalls();
    host.answer = BASEUI::MessageResult::Cancel;
    list.OnDelTasks({0, 1});
    list.OnDelTasks({});
    list.OnDelTasks({99, "x", QVariant()});
    EXPECT_EQ(host.told(), "是否删除？删除后，不能恢复数据。\n共2个任务?");
    EXPECT_EQ(service.takeCalls(), "");

    host.answer = BASEUI::MessageResult::Ok;
    list.OnDelTasks({0, 1, 2, 2});
    EXPECT_EQ(service.takeCalls(), "remove t0 t1 t2 | log 删除交底 技术→交底管理→删除");
    EXPECT_EQ(counts, (QStringList{"base -2", "frame -1"}));
    settle();
    EXPECT_EQ(list.totalCount(), 28);
    EXPECT_EQ(page(), "1 of 2: 15 from 任务3");

    service.refused = L"remove";
    list.OnDelTasks({0});
    settle();
    EXPECT_EQ(list.totalCount(), 28);
    EXPECT_EQ(counts.size(), 2);
}

TEST_F(TaskList, MovesUpToTheFirstRefusal) {
    service.tasks[1].disclosureCatalogId = L"mep";
    service.tasks[2].disclosureCatalogId = L"frame";
    reread();
    service.refused = L"task t4";
    const auto move = [&] {
        list.moveTasksTo("frame", {0, 1, 2, 3, 4, 5});
        EXPECT_EQ(counts, (QStringList{"base -2", "frame 3", "mep -1"})) << "one was there already, two stay";
        EXPECT_EQ(service.calls.back(), L"task t4 to frame");
    };
    EXPECT_EQ(queriesOf(move), 1u);
    EXPECT_EQ(shown(3, "catalogid") + shown(4, "catalogid"), "framebase");
}

TEST_F(TaskList, RowsTellWhatTheRecordSays) {
    auto& task = service.tasks[0];
    task.status = 3;
    task.isPublish = 1;
    task.updateBy = L"lina";
    task.constructionStartDateMills = mills(2024, 2, 29, QTime(8, 30));
    task.disclosureTaskReceiveUserList = {{L"", L"", L"zhangwei2", L"张伟", L"", 0, 0},
                                          {L"", L"", L"noname", L"", L"", 0, 0}};
    task.disclosureTaskViewportList = {{L"", L"", 0, L"", L"视口", L""}};
    task.disclosureTaskNodeList = {{L"", L"", 0, L"", L"节点", L"", L""}};
    task.disclosureTaskDocList.resize(1);
    task.disclosureTaskDocList[0].name = L"方案.pdf";
    service.tasks[1].status = 9;
    service.tasks[1].updateBy = L"张伟";
    service.tasks[1].disclosureTaskNodeList = {{L"", L"", 0, L"n1", L"", L"", L""},
                                               {L"", L"", 0, L"n2", L"", L"", L""}};
    reread();
    const std::tuple<int, const char*, QString> expected[] = {
        {0, "status", "交底中"},
        {0, "released", "true"},
        {0, "updateperson", "李娜"},
        {0, "start_show", "2024-02-29"},
        {0, "end_show", ""},
        {0, "receiver", "张伟(zhangwei2)、noname"},
        {0, "relBIMs", "视口、节点"},
        {0, "relFiles", "方案.pdf"},
        {0, "owner", "张伟(zhangwei)"},
        {1, "status", ""},
        {1, "updateperson", "张伟"},  // a display name, whoever else has it
        {1, "relBIMs", "n1、n2"}};    // without names
    for (const auto& [index, property, text] : expected)
        EXPECT_EQ(shown(index, property), text) << property;
    EXPECT_FALSE(row(0)->property("end_date").toDateTime().isValid());
}

TEST_F(TaskList, NamesakesAreToldApart) {
    EXPECT_EQ(row(0)->property("ownermodel").toStringList(),
              (QStringList{"张伟(zhangwei)", "李娜", "张伟(zhangwei2)", "noname", "赵磊"}));
    EXPECT_TRUE(list.onEditOwner("张伟(zhangwei2)", row(0)));
    EXPECT_EQ(service.updates.back().disclosureUserName, L"zhangwei2");
    EXPECT_EQ(service.updates.back().name, L"任务0") << "the whole record goes out";
    EXPECT_EQ(row(0)->property("ownermodel").toStringList().first(), "张伟(zhangwei2)");

    EXPECT_TRUE(list.onEditOwner("张伟(zhangwei2)", row(0)));
    EXPECT_FALSE(list.onEditOwner("张伟", row(0)));
    service.refused = L"update";
    EXPECT_FALSE(list.onEditOwner("李娜", row(1)));
    EXPECT_EQ(shown(1, "owner"), "张伟(zhangwei)");
    EXPECT_EQ(service.updates.size(), 2u);
}

TEST(PeopleNames, NoTwoPeopleAreShownAlike) {
    const std::vector<BASEPACKAGE::UserRecord> department{{L"zhangwei", L"李娜", L"", L""}, {L"李娜", L"", L"", L""},
                                                          {L"a", L"王(b)", L"", L""},       {L"b", L"王", L"", L""},
                                                          {L"c", L"王", L"", L""},          {L"c", L"王", L"", L""}};
    const PeopleNames names(department);
    EXPECT_EQ(names.choices("王(c)"), (QStringList{"王(c)", "李娜(zhangwei)", "李娜(李娜)", "王(b)", "王(b)(b)"}));
    for (const auto& person : department)
        EXPECT_EQ(names.userName(names.shown(person.userName)), person.userName);
    EXPECT_EQ(names.shown(L"x", L"王"), "王(x)") << "of another department";
    EXPECT_EQ(names.shown(L"x", L"赵"), "赵");
    EXPECT_EQ(names.userName("赵"), L"");
    EXPECT_EQ(names.shown({{L"c", L"", L"", L""}, {L"x", L"赵", L"", L""}, {L"y", L"赵", L"", L""}}),
              (QStringList{"王(c)", "赵(x)", "赵(y)"}));
}

TEST_F(TaskList, DatesOfACellAreSavedOrPutBack) {
    EXPECT_TRUE(list.onEditDate("2024-02-29", "施工开始日期", row(0)));
    EXPECT_EQ(shown(0, "start_show"), "2024-02-29");
    settle();
    EXPECT_TRUE(list.onEditDate("", "施工开始日期", row(0)));
    EXPECT_EQ(service.updates.back().constructionStartDateMills, 0);
    EXPECT_TRUE(list.onEditDate("2024-03-01", "施工结束日期", row(1)));
    settle();

    service.updates.clear();
    const std::tuple<const char*, const char*, TaskModel*> refused[] = {
        {"2024-02-30", "施工结束日期", row(1)},  {"29.2.2024", "施工结束日期", row(1)},
        {"1969-01-01", "施工结束日期", row(1)},  {"2024-03-01", "更新时间", row(1)},
        {"2024-03-01", "施工结束日期", nullptr}, {"2024-03-02", "施工开始日期", row(1)}};
    for (const auto& [date, column, task] : refused)
        EXPECT_FALSE(list.onEditDate(date, column, task)) << date;
    EXPECT_EQ(host.told(), "施工开始日期不得大于施工结束日期");
    EXPECT_TRUE(service.updates.empty());
    service.refused = L"update";
    EXPECT_FALSE(list.onEditDate("2024-03-05", "施工结束日期", row(1)));
    EXPECT_EQ(shown(1, "end_show"), "2024-03-01");
}

TEST_F(TaskList, PublishedTasksAreNotEdited) {
    service.tasks[0].isPublish = 1;
    reread();
    list.onEditTaskName(row(0));
    list.onEditBimInfo(row(0));
    list.onEditDocInfo(row(0));
    list.ModifyTask(row(0));
    EXPECT_FALSE(list.onEditOwner("李娜", row(0)));
    EXPECT_FALSE(list.onEditDate("2024-03-01", "计划交底日期", row(0)));
    EXPECT_EQ(host.messages.count("已发布的任务暂不支持编辑"), 6);
    EXPECT_EQ(host.messages.size(), 6);
    EXPECT_TRUE(service.updates.empty());
}

TEST_F(TaskList, NoRowGoesWhileAMessageIsOpen) {
    BASEUI::SetMessageBoxHandler([this](const std::wstring&, QWidget*, BASEUI::MessageButtons) {
        reread();
        EXPECT_TRUE(service.queries.empty());
        return BASEUI::MessageResult::Cancel;
    });
    EXPECT_EQ(queriesOf([&] { list.OnDelTasks({0}); }), 1u);
}

TEST_F(TaskList, DoesNothingWithoutAManager) {
    host.core.managers.clear();
    list.nextPage();
    settle();
    list.OnDelTasks({0});
    list.moveTasksTo("frame", {0});
    list.OnExportTasksToExcel({0});
    list.onClickPreviewTask(row(0));
    ModalWindow::expectNone([this] {
        list.AddTask();
        list.ModifyTask(row(0));
        list.OnMoveTasks({0});
        list.onClickRemind();
    });
    EXPECT_FALSE(list.onEditOwner("李娜", row(0)));
    EXPECT_FALSE(list.onEditDate("2024-03-01", "计划交底日期", row(0)));
    EXPECT_TRUE(host.messages.isEmpty());
    EXPECT_EQ(rowCount(), 15);
}

}  // namespace
