#include <regex>
#include <sys/stat.h>

#include "service/domain/Demo.h"
#include "service/ports/Changing.h"
#include "service/store/Migrations.h"
#include "service/store/NameIndex.h"
#include "service/store/Queries.h"
#include "tests/service/TestService.h"

namespace disclosure::testing {
namespace {

class StoreTest : public ::testing::Test {
protected:
    soci::session open() { return {soci::sqlite3, "dbname=" + file}; }

    TempFolder folder;
    std::string file = folder.file("data/disclosure.db");
};

TEST_F(StoreTest, TheFileIsItsOwnersOnly) {
    SqliteDatabase(file).migrate();
    struct stat info {};
    ASSERT_EQ(::stat(file.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0600U);
    ASSERT_EQ(::stat(folder.file("data").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0700U);
}

TEST_F(StoreTest, AnOldFileIsBroughtUpToDateAndKeepsItsData) {
    const int newest = static_cast<int>(migrations().size());
    SqliteDatabase database(file);
    EXPECT_FALSE(std::ifstream(file).peek() != EOF) << "nothing in it yet";
    EXPECT_EQ(database.migrate(2), 2);
    EXPECT_FALSE(database.connect()->isCurrent());
    {
        auto sql = open();
        sql << "INSERT INTO department VALUES ('d', '部门', NULL)";
        sql << "INSERT INTO catalog (dept_id, catalog_id, parent_id, name, sort, depth) VALUES ('d', 'c', NULL, "
               "'全部', 0, 1)";
    }
    EXPECT_EQ(database.migrate(), newest - 2);
    EXPECT_EQ(database.migrate(), 0);
    const auto store = database.connect();
    EXPECT_TRUE(store->isCurrent());
    ASSERT_EQ(store->catalogs("d").size(), 1U);
    EXPECT_EQ(store->catalogs("d")[0].name, "全部");
}

TEST_F(StoreTest, NamesFromBeforeEveryScriptHadSmallLettersAreFoundByThem) {
    SqliteDatabase database(file);
    database.migrate(8);
    {
        auto sql = open();
        auto* backend = static_cast<soci::sqlite3_session_backend*>(sql.get_backend());
        installNameGrams(reinterpret_cast<::sqlite3*>(backend->conn_));
        sql << "INSERT INTO department VALUES ('d', '部门', NULL)";
        sql << "INSERT INTO catalog (dept_id, catalog_id, parent_id, name, sort, depth) VALUES ('d', 'c', NULL, "
               "'全部', 0, 1)";
        sql << "INSERT INTO task (dept_id, task_id, catalog_id, name, search_name) VALUES "
               "('d', 't', 'c', 'ЁЛКА Ā', 'Ёлка Ā'), ('d', 'u', 'c', '钢筋A', '钢筋a')";
    }
    database.migrate();
    const auto store = database.connect();
    TaskFilter filter;
    filter.deptId = "d";
    filter.limit = 10;
    for (const auto& [keyword, id] : {std::pair("ёлк", "t"), {"Ёл", "t"}, {"ā", "t"}, {"筋A", "u"}}) {
        filter.keyword = keyword;
        const auto page = store->pageTasks(filter);
        ASSERT_EQ(page.tasks.size(), 1U) << keyword;
        EXPECT_EQ(page.tasks[0].id, id);
    }
}

TEST_F(StoreTest, StepsThatFailOrAreUnknownLeaveTheFileAlone) {
    SqliteDatabase database(file);
    database.migrate(1);
    open() << "CREATE TABLE catalog_top (x INTEGER)";  // in the way of the second step's index
    EXPECT_THROW(database.migrate(), std::exception);
    int tables = 0;
    open() << "SELECT COUNT(*) FROM sqlite_master WHERE name = 'catalog'", soci::into(tables);
    EXPECT_EQ(tables, 0) << "a step is whole or absent";
    open() << "DROP TABLE catalog_top";
    EXPECT_GT(database.migrate(), 0);

    open() << "INSERT INTO schema_version VALUES (1000)";
    EXPECT_THROW(database.migrate(), std::runtime_error);
    EXPECT_FALSE(database.connect()->isCurrent());
}

TEST_F(StoreTest, ProcessesMigratingAtOnceTakeEachStepOnce) {
    std::atomic<int> taken{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] { taken += SqliteDatabase(file).migrate(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(taken, static_cast<int>(migrations().size()));
}

TEST_F(StoreTest, AChangeIsRepeatedWhereAnotherWasInItsWayAndGivenUpInTheEnd) {
    SqliteDatabase database(file);
    database.migrate();
    const auto store = database.connect();
    for (const int conflicts : {0, 1, 3, 4, 100}) {
        const std::string id = "d" + std::to_string(conflicts);
        int tries = 0;
        const auto change = [&] {
            store->putDepartment({id, "部门", ""});
            if (++tries <= conflicts)
                throw soci::sqlite3_soci_error("database is locked", 5);
            return tries;
        };
        if (conflicts < 4)
            EXPECT_EQ(changing(*store, change), conflicts + 1);
        else
            EXPECT_THROW(changing(*store, change), std::exception);
        EXPECT_EQ(store->department(id).has_value(), conflicts < 4);
    }
    {
        const auto other = database.connect();
        const Transaction held(*other, IStore::Access::Write);
        EXPECT_THROW(changing(*store, [] {}), Conflict) << "a writer of the same process is not waited for without end";
    }
    int tries = 0;
    EXPECT_THROW(changing(*store, [&] { throw std::runtime_error(std::to_string(++tries)); }), std::runtime_error);
    EXPECT_EQ(tries, 1) << "another failure would be the same again";
}

TEST_F(StoreTest, TheWriteAheadLogIsCutBackAfterALongTransaction) {
    SqliteDatabase database(file);
    database.migrate();
    seedDemo(*database.connect(), Passwords(Passwords::Cost::Lowest));
    const auto store = database.connect();
    const auto reader = database.connect();
    const auto log = [&] { return std::filesystem::file_size(file + "-wal"); };
    const auto write = [&](std::size_t megabytes) {
        changing(*store, [&] {
            for (std::size_t i = 0; i < megabytes; ++i)
                store->addMessage({0, FirstDept, "demo", ReminderKind::Advance, std::string(1 << 20, 'x'), "t", 0});
        });
    };
    {
        const Transaction reading(*reader, IStore::Access::Read);
        EXPECT_TRUE(reader->isCurrent());
        write(70);
        EXPECT_GT(log(), 64U << 20);
    }
    write(1);
    write(1);
    EXPECT_LE(log(), 64U << 20);
}

TEST_F(StoreTest, EveryQueryFindsItsRowsByAKey) {
    SqliteDatabase database(file);
    database.migrate();
    seedDemo(*database.connect(), Passwords(Passwords::Cost::Lowest));
    auto sql = open();
    auto* backend = static_cast<soci::sqlite3_session_backend*>(sql.get_backend());
    installNameGrams(reinterpret_cast<::sqlite3*>(backend->conn_));
    // The names the queries give the tables; what a query builds by itself may be read through.
    const std::regex readsLarge("SCAN (task|catalog|reminder|message|mail|c|t|l|f|y)\\b|BLOOM");
    const std::regex readsAny(
        "SCAN "
        "(task|catalog|department|member|person|project|granted|web_session|login_attempt|push_config|"
        "reminder|reminder_run|reminder_changed|message|mail|doc_folder|document|c|d|f|g|k|l|m|o|p|t|y)"
        "\\b|BLOOM");
    const auto checkPlans = [&](const std::regex& reads) {
        for (const char* query : queries::Keyed) {
            soci::rowset<soci::row> plan = (sql.prepare << std::string("EXPLAIN QUERY PLAN ") + query);
            std::string all;
            for (const soci::row& row : plan)
                all += row.get<std::string>(3) + "\n";
            EXPECT_FALSE(std::regex_search(all, reads)) << query << "\n" << all;
        }
    };
    checkPlans(readsAny);
    sql << "ANALYZE";  // as a migration does while there is little in the tables yet
    checkPlans(readsLarge);
    sql.begin();
    const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) ";
    sql << numbers + "INSERT INTO department SELECT 'd' || i, 'd', 'demo-org' FROM n";
    sql << numbers + "INSERT INTO person SELECT 'p' || i, 'p', '', 'd' || i, 'x', '', 1 FROM n";
    sql << "INSERT INTO member SELECT dept_id, username FROM person WHERE username LIKE 'p%'";
    sql << numbers + "INSERT INTO project SELECT 'd' || i, i, 'x' FROM n";
    sql << numbers +
               "INSERT INTO catalog (dept_id, catalog_id, parent_id, name, sort, depth) "
               "SELECT 'demo-dept-1', 'n' || i, 'demo-catalog-1', 'n' || i, 100 + i, 2 FROM n";
    sql << numbers +
               "INSERT INTO removal (dept_id, log_id, username, removed_at, tasks) SELECT 'd' || i, 'l', '', 0, 1 "
               "FROM n";
    sql << "INSERT INTO task (dept_id, task_id, catalog_id, name, search_name, discloser) "
           "SELECT dept_id, catalog_id, catalog_id, name, name, name FROM catalog";
    sql << "INSERT INTO task_receiver SELECT dept_id, rid, 0, task_id, task_id, 0, 1 FROM task";
    sql << "INSERT INTO task_log (dept_id, task_id, log_id, username, op_time, kind) "
           "SELECT dept_id, task_id, task_id, '', 0, 1 FROM task";
    for (const char* list : {"task_doc SELECT dept_id, rid, 0, task_id, 1, '', task_id, '', 0, '', 1, ''",
                             "task_attachment SELECT dept_id, rid, 0, task_id, '', task_id, '', 0, '', task_id, '', 0"})
        sql << std::string("INSERT INTO ") + list + " FROM task";
    sql << "INSERT INTO stored_file SELECT dept_id, task_id, '', '', '', 1, '', 0, rid % 100 FROM task";
    for (const char* table :
         {"doc_folder SELECT dept_id, task_id, 'n' || rid / 10, name, 1", "doc_tag SELECT dept_id, task_id, name, 1, 1",
          "doc_tagged SELECT dept_id, task_id, rid, 0",
          "doc_content SELECT dept_id, rid, 1, task_id, '', name, 'pdf', 1, '', 1"})
        sql << std::string("INSERT INTO ") + table + " FROM task";
    sql << "INSERT INTO document (dept_id, doc_id, folder_id, name, search_name, extension, uuid, md5, size, woven_at, "
           "tag_number, content_number, updated_by, updated_at) SELECT dept_id, task_id, task_id, name, name, 'pdf', "
           "task_id, '', 1, 1, 1, 1, name, rid FROM task";
    sql << "INSERT INTO file_upload SELECT dept_id, task_id, 1, rid FROM task";
    sql << "INSERT INTO push_config SELECT dept_id, dept_id, 0, 0, 1, 0, 1 FROM department";
    sql << "INSERT INTO reminder_run SELECT dept_id, 1, 0, 0, 0 FROM department";
    sql << "INSERT INTO reminder_changed SELECT dept_id, rid FROM task";
    sql << "INSERT INTO reminder SELECT dept_id, task_id, 1, 'once 2026-01-01', task_id, rid FROM task";
    sql << "INSERT INTO message (dept_id, username, task_id, kind, text, created_at) "
           "SELECT dept_id, task_id, task_id, 1, '', rid FROM task";
    sql << "INSERT INTO mail SELECT dept_id, task_id, task_id, 1, '', task_id, '', '', rid, 0, rid, rid FROM task";
    sql.commit();
    checkPlans(readsLarge);
    sql << "ANALYZE";
    checkPlans(readsAny);
}

}  // namespace
}  // namespace disclosure::testing
