#include <algorithm>
#include <regex>

#include "service/domain/Catalogs.h"
#include "service/domain/LoadData.h"
#include "service/store/NameIndex.h"
#include "service/store/TaskPlan.h"
#include "tests/service/TaskTest.h"

namespace disclosure::testing {
namespace {

class TaskList : public TaskTest {};

TEST_F(TaskList, FiltersBySubtreeDateAndKeyword) {
    const auto add = [&](const std::string& id, const std::string& name, const std::string& catalog, int planned) {
        service.now += 10;
        const std::string date = planned ? R"(,"planDisclosureDateMills":)" + std::to_string(planned) : "";
        ASSERT_EQ(save(taskBody(id, name, date, catalog)).code(), 200);
    };
    add("a", "基础100%验收", "demo-catalog-4", 100);
    add("b", "基础1000验收", "demo-catalog-4", 200);
    add("c", "Ａ区_Beam钢筋", "demo-catalog-8", 300);
    add("d", "a区xBEAM钢筋", "demo-catalog-17", 0);

    EXPECT_EQ(page(""), (Ids{"d", "c", "b", "a"})) << "the latest changed first";
    EXPECT_EQ(page("disclosureCatalogId=demo-catalog-2"), (Ids{"c", "b", "a"})) << "with everything below it";
    EXPECT_EQ(page("disclosureCatalogId=demo-catalog-4&orderKey=taskName&orderType=DESC"), (Ids{"b", "a"}));
    EXPECT_EQ(demo.get(PagePath + std::string("disclosureCatalogId=none")).code(), 404);

    EXPECT_EQ(page("keyword=100%25"), Ids{"a"}) << "a percent sign is one";
    EXPECT_EQ(page("keyword=_"), Ids{"c"});
    EXPECT_EQ(page("keyword=beam"), (Ids{"d", "c"})) << "capital or small";
    EXPECT_EQ(page("keyword=%EF%BC%A1%E5%8C%BA"), Ids{"c"}) << "full-width letters are letters of their own";
    EXPECT_EQ(page("keyword=%E9%92%A2"), (Ids{"d", "c"})) << "one character";
    EXPECT_EQ(page("keyword=%E9%92%A2%E7%AD%8B&disclosureCatalogId=demo-catalog-2"), Ids{"c"}) << "two";
    EXPECT_EQ(page("keyword=1000%E9%AA%8C"), Ids{"b"});
    EXPECT_EQ(page("keyword=%22%20OR%20%22"), Ids{});
    EXPECT_EQ(page("keyword='"), Ids{});
    EXPECT_EQ(page("keyword=" + std::string(10'000, 'a')), Ids{});
    EXPECT_EQ(demo.get(PagePath + std::string("keyword=a%00b")).status, 400);

    EXPECT_EQ(page("dateType=2&startDateMills=100&endDateMills=200"), (Ids{"b", "a"})) << "both ends included";
    EXPECT_EQ(page("dateType=2&startDateMills=-1&endDateMills=200"), (Ids{"b", "a"})) << "no date lies in no range";
    EXPECT_EQ(page("dateType=2&startDateMills=201&endDateMills=-1"), Ids{"c"});
    EXPECT_EQ(page("dateType=2&startDateMills=200&endDateMills=100"), Ids{});
    EXPECT_EQ(page("dateType=1&startDateMills=100&endDateMills=200"), Ids{});
    EXPECT_EQ(page("dateType=-1&startDateMills=100&endDateMills=200").size(), 4U);
    EXPECT_EQ(page("dateType=2&startDateMills=-1&endDateMills=-1").size(), 4U);
    EXPECT_EQ(page("orderKey=planDisclosureDate&orderType=ASC"), (Ids{"d", "a", "b", "c"}));
    EXPECT_EQ(page("orderKey=updateAt"), (Ids{"a", "b", "c", "d"}));
    update("a", R"(,"name":"改名")");
    EXPECT_EQ(page("keyword=100%25"), Ids{}) << "by the new name only";
    EXPECT_EQ(page("keyword=%E6%94%B9%E5%90%8D"), Ids{"a"});
}

TEST_F(TaskList, WhatMakesNoSenseIsMalformed) {
    for (const char* query :
         {"currentPage=0", "currentPage=-1", "pageSize=0", "pageSize=-5", "pageSize=201", "pageSize=1000000",
          "currentPage=99999999999", "pageSize=x", "orderKey=name", "orderKey=taskName;", "orderType=asc", "status=5",
          "dateType=5", "startDateMills=1e3", "startDateMills=99999999999999999999"}) {
        const Answer answer = demo.get(PagePath + std::string(query));
        EXPECT_EQ(answer.status, 400) << query;
        EXPECT_FALSE(answer.msg().empty());
    }
    EXPECT_EQ(demo.get(TaskPath + "page_disclosure_task_4_status_by_currentuser?type=3").status, 400);
    EXPECT_EQ(page("status=-1&orderKey=&orderType="), Ids{});
}

TEST_F(TaskList, OnesOwnTasksAreThoseToDiscloseAndThePublishedToReceive) {
    ASSERT_EQ(save(publishedBody("t", {{"planDisclosureDateMills", 500}})).code(), 200);
    ASSERT_EQ(save(taskBody("plan", "计划",
                            {{"disclosureUserName", "sunli"},
                             {"disclosureTaskReceiveUserList", people({{"a", "liuyang"}, {"b", "sunli"}})}}))
                  .code(),
              200);
    const auto check = [&](const std::string& username, const std::string& query, const Ids& expected) {
        const auto json =
            service.loggedIn(username).get(TaskPath + "page_disclosure_task_4_status_by_currentuser?" + query).json();
        Ids ids;
        for (const auto& t : json["result"]["result"].GetArray())
            ids.emplace_back(t["id"].GetString());
        EXPECT_EQ(ids, expected) << username << " " << query;
        EXPECT_EQ(json["result"]["totalCount"].GetUint(), ids.size()) << username << " " << query;
    };
    check("sunli", "deptId=&type=0", {"plan", "t"});
    check("sunli", "type=1", {"plan"});
    check("sunli", "type=2&deptId=demo-dept-1", {"t"});
    check("liuyang", "", {"t"});
    check("sunli", "disclosureUsername=chenwei", {"t"});
    check("sunli", "startDateMills=500&endDateMills=500", {"t"});
    check("sunli", "keyword=%E8%AE%A1%E5%88%92", {"plan"});
    ASSERT_EQ(update("plan", {{"isPublish", 1}}).code(), 200);
    check("liuyang", "", {"plan", "t"});
    check("sunli", "type=0", {"plan", "t"});
    check("sunli", "type=2", {"plan", "t"});
    ASSERT_EQ(demo.del(TaskPath + "batchdelete", R"({"ids":["t"]})").code(), 200);
    check("sunli", "", {"plan"});
    check("chenwei", "", {});
}

/// Three thousand made-up tasks, and every filter held against what reading all of them says.
class TaskPlans : public ::testing::Test {
protected:
    static constexpr std::int64_t Now = 1'767'225'600'000;

    TaskPlans() : database(folder.file("plans.db")) {
        database.migrate();
        store = database.connect();
        seedLoad(*store, Passwords(Passwords::Cost::Lowest), {"Dept_1", 3000, 22, 7});
        seedLoad(*store, Passwords(Passwords::Cost::Lowest), {"dept_1", 3000, 22, 7});  // with the same names
    }
    static TaskFilter everything() {
        TaskFilter filter;
        filter.deptId = "Dept_1";
        filter.now = Now;
        filter.limit = 5000;
        return filter;
    }
    std::vector<TaskFilter> filters() const {
        std::vector<TaskFilter> all;
        for (const char* catalog : {"", "Dept_1-c0", "Dept_1-c3", "Dept_1-c14"}) {
            for (int status = 0; status <= 4; ++status) {
                for (const char* keyword : {"", "梁", "钢筋", "样板引路"}) {
                    TaskFilter filter = everything();
                    filter.catalogId = catalog;
                    filter.status = status;
                    filter.keyword = keyword;
                    filter.order = static_cast<TaskFilter::Order>(all.size() % 7);
                    filter.descending = all.size() % 3 == 0;
                    if (all.size() % 2 == 0) {
                        filter.date = static_cast<TaskFilter::Date>(1 + all.size() / 2 % 4);
                        filter.from = Now - 100 * Day;
                        filter.to = Now + 100 * Day;
                    }
                    all.push_back(filter);
                }
            }
        }
        for (int status = 1; status <= 4; ++status) {
            all.push_back(everything());
            all.back().status = status;
        }
        return all;
    }

    TempFolder folder;
    SqliteDatabase database;
    std::unique_ptr<IStore> store;
};

std::int64_t dateOf(const Task& task, TaskFilter::Date date) {
    switch (date) {
        case TaskFilter::Date::Actual:
            return task.actualDisclosure;
        case TaskFilter::Date::Plan:
            return task.planDisclosure;
        case TaskFilter::Date::ConstructionStart:
            return task.constructionStart;
        default:
            return task.constructionEnd;
    }
}

/// Holds every filter and the lists of one's own against `all`, which are the tasks that there are.
void checkFilters(IStore& store, const std::vector<TaskFilter>& filters, const TaskPage& all) {
    constexpr std::int64_t Now = 1'767'225'600'000;
    const auto catalogs = store.catalogs("Dept_1");
    const auto isBelow = [&](std::string id, const std::string& top) {
        while (!id.empty() && id != top)
            id = std::find_if(catalogs.begin(), catalogs.end(), [&](const Catalog& c) { return c.id == id; })->parentId;
        return id == top;
    };
    for (const TaskFilter& filter : filters) {
        std::set<std::string> expected;
        for (const Task& task : all.tasks) {
            const bool matches = isBelow(task.catalogId, filter.catalogId) &&
                                 task.name.find(filter.keyword) != std::string::npos &&
                                 (filter.status == 0 || filter.status == static_cast<int>(task.statusAt(Now))) &&
                                 (filter.date == TaskFilter::Date::None ||
                                  (dateOf(task, filter.date) >= filter.from && dateOf(task, filter.date) <= filter.to));
            if (matches)
                expected.insert(task.id);
        }
        const TaskPage found = store.pageTasks(filter);
        std::set<std::string> ids;
        for (const Task& task : found.tasks)
            ids.insert(task.id);
        EXPECT_EQ(ids, expected) << filter.catalogId << " " << filter.status << " " << filter.keyword;
        EXPECT_EQ(found.total, std::ssize(expected));

        TaskFilter part = filter;  // the pages put together are the whole, also those read from the end
        part.limit = 1 + found.total / 7;
        std::size_t place = 0;
        for (; part.offset < found.total; part.offset += part.limit) {
            for (const Task& task : store.pageTasks(part).tasks) {
                ASSERT_LT(place, found.tasks.size());
                ASSERT_EQ(task.id, found.tasks[place++].id);
            }
        }
        EXPECT_EQ(place, found.tasks.size());
        EXPECT_TRUE(store.pageTasks(part).tasks.empty()) << "beyond the end";
        EXPECT_EQ(store.pageTasks(part).total, found.total);
    }
    using Role = OwnTaskFilter::Role;
    for (int i = 0; i < 12; ++i) {
        OwnTaskFilter own;
        own.username = "Dept_1-" + std::to_string(i);
        own.deptId = i % 2 ? "Dept_1" : "";
        own.now = Now;
        own.role = static_cast<Role>(i % 3);
        own.keyword = i < 6 ? "" : "钢筋";
        own.limit = 5000;
        std::set<std::string> expected;
        for (const Task& task : all.tasks) {
            const bool gives = own.role != Role::Receiver && task.discloser == own.username;
            const bool receives = own.role != Role::Discloser && task.published &&
                                  std::any_of(task.receivers.begin(), task.receivers.end(),
                                              [&](const TaskReceiver& r) { return r.username == own.username; });
            if ((gives || receives) && task.name.find(own.keyword) != std::string::npos)
                expected.insert(task.id);
        }
        const OwnTaskPage found = store.pageOwnTasks(own);
        EXPECT_EQ(found.total, std::ssize(expected)) << i;
        EXPECT_EQ(found.tasks.size(), expected.size()) << i;
        for (own.limit = 7; own.offset < found.total; own.offset += own.limit) {
            std::size_t place = static_cast<std::size_t>(own.offset);
            for (const OwnTask& task : store.pageOwnTasks(own).tasks) {
                EXPECT_TRUE(expected.contains(task.id)) << task.id;
                EXPECT_EQ(task.id, found.tasks.at(place++).id) << i;
            }
        }
    }
}

TEST_F(TaskPlans, EveryFilterFindsWhatReadingAllOfThemFinds) {
    TaskPage all = store->pageTasks(everything());
    ASSERT_EQ(all.tasks.size(), 3000U);
    EXPECT_EQ(store->task("Dept_1", "Dept_1-t17")->name, store->task("dept_1", "dept_1-t17")->name) << "the same seed";
    checkFilters(*store, filters(), all);

    // A building goes with its tasks; they are gone before anything is cleared away, and while it is.
    const Catalog building = store->catalog("Dept_1", "Dept_1-c1").value();
    TaskFilter below = everything();
    below.catalogId = building.id;
    std::set<std::string> gone;
    for (const Task& task : store->pageTasks(below).tasks)
        gone.insert(task.id);
    ASSERT_GT(gone.size(), 500U);
    LogEntry entry;
    entry.id = "removal";
    entry.deptId = "Dept_1";
    entry.username = "Dept_1";
    store->removeCatalog(building, entry);
    const auto rows = [&] {
        long long tasks = 0;
        soci::session(soci::sqlite3, "dbname=" + folder.file("plans.db")) << "SELECT COUNT(*) FROM task",
            soci::into(tasks);
        return tasks;
    };
    EXPECT_EQ(rows(), 6000) << "not yet";
    std::erase_if(all.tasks, [&](const Task& task) { return gone.contains(task.id); });
    checkFilters(*store, filters(), all);
    EXPECT_FALSE(store->task("Dept_1", *gone.begin()));
    EXPECT_TRUE(store->tasksOfPerson("Dept_1", *gone.begin()).empty());
    EXPECT_FALSE(store->catalog("Dept_1", "Dept_1-c1") || store->childNamed("Dept_1", "Dept_1-c0", building.name));
    Task again = all.tasks.front();
    again.id = *gone.begin();
    store->addTask(again);  // under an id that went with it
    EXPECT_EQ(store->task("Dept_1", again.id)->catalogId, again.catalogId);
    all = store->pageTasks(everything());
    EXPECT_EQ(all.total, 3001 - std::ssize(gone));
    store->clearRemoved(100);
    EXPECT_EQ(rows(), 6000 - 100);
    checkFilters(*store, filters(), all);
    clearRemoved(*store, [] { return true; });
    EXPECT_EQ(rows(), 6001 - std::ssize(gone));
    checkFilters(*store, filters(), all);
    LogFilter log;
    log.deptId = "Dept_1";
    log.taskId = *gone.rbegin();
    log.limit = 10;
    const auto entries = store->logOf(log);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].kind, LogEntry::Deleted);
    EXPECT_EQ(entries[0].realname, "负责人");
}

TEST_F(TaskPlans, EveryStatementReadsTheIndexItIsMeantTo) {
    soci::session sql(soci::sqlite3, "dbname=" + folder.file("plans.db"));
    const auto planOf = [&](const BoundSql& statement) {
        std::string detail;
        std::string plan;
        soci::statement rows(sql);
        int ignored = 0;
        for (int i = 0; i < 3; ++i)
            rows.exchange(soci::into(ignored));
        rows.exchange(soci::into(detail));
        rows.alloc();
        rows.prepare("EXPLAIN QUERY PLAN " + statement.text);
        rows.define_and_bind();
        rows.execute();
        while (rows.fetch())
            plan += detail + "\n";
        return plan;
    };
    const std::regex readsAll("SCAN t\\b|BLOOM|AUTOMATIC");
    const auto check = [&] {
        for (const TaskFilter& filter : filters()) {
            const bool whole = filter.catalogId.empty() || filter.catalogId == "Dept_1-c0";
            const TaskPlan plan(filter, {whole, filter.catalogId == "Dept_1-c14", 1000, 1'000'000});
            for (const TaskPlan::Path path : plan.paths()) {
                for (const BoundSql& statement : {plan.probe(path, 10), plan.count(path), plan.page(path, 100)}) {
                    const std::string text = planOf(statement);
                    EXPECT_FALSE(std::regex_search(text, readsAll)) << statement.text << "\n" << text;
                }
                // The statements that the database may answer without looking at a task.
                const bool dated = filter.date != TaskFilter::Date::None;
                const bool covered = filter.keyword.empty() &&
                                     (dated ? path == TaskPlan::Path::Date : path == TaskPlan::Path::Catalog || whole);
                if (covered) {
                    EXPECT_NE(planOf(plan.count(path)).find("COVERING"), std::string::npos) << plan.count(path).text;
                }
            }
            const std::string walk = planOf(plan.page(TaskPlan::Path::Catalog, 900'000));
            EXPECT_EQ(walk.find("TEMP B-TREE FOR ORDER"), std::string::npos) << walk;
        }
    };
    check();
    sql << "DELETE FROM sqlite_stat1";
    sql.reconnect();
    check();
}

}  // namespace
}  // namespace disclosure::testing
