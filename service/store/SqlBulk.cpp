#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

namespace {

struct Dropped {
    std::string name;
    std::string text;
};

/// What keeps up to date with every row what can as well be made at once at the end.
std::vector<Dropped> dropTriggers(soci::session& sql) {
    std::vector<Dropped> all;
    {
        Dropped one;
        soci::statement rows =
            (sql.prepare << "SELECT name, sql FROM sqlite_master WHERE type = 'trigger' AND tbl_name IN "
                            "('task', 'task_receiver', 'task_doc')",
             into(one.name), into(one.text));
        rows.execute();
        while (rows.fetch())
            all.push_back(one);
    }
    for (const Dropped& one : all)
        sql << "DROP TRIGGER " + one.name;
    return all;
}

}  // namespace

void SqlStore::addTasks(const std::vector<Task>& tasks) {
    const auto dropped = dropTriggers(*m_sql);
    const std::int64_t before = readNumber("SELECT COALESCE(MAX(rid), 0) FROM task");
    for (const Task& task : tasks)
        addTask(task);
    for (const Dropped& one : dropped)
        *m_sql << one.text;
    *m_sql << "INSERT INTO task_gram (rowid, grams) SELECT rid, name_grams(dept_id, search_name) FROM task "
              "WHERE rid > :before",
        use(before, "before");
}

void SqlStore::countTasks(const std::string& deptId) {
    *m_sql << "UPDATE catalog SET task_number = (SELECT COUNT(*) FROM task t WHERE t.dept_id = catalog.dept_id "
              "AND t.catalog_id = catalog.catalog_id) WHERE dept_id = :dept",
        use(deptId, "dept");
    *m_sql << "UPDATE catalog SET subtree_number = (WITH RECURSIVE below(id, number) AS (SELECT catalog.catalog_id, "
              "catalog.task_number UNION ALL SELECT c.catalog_id, c.task_number FROM below b CROSS JOIN catalog c "
              "WHERE c.dept_id = catalog.dept_id AND c.parent_id = b.id) SELECT SUM(number) FROM below) "
              "WHERE dept_id = :dept",
        use(deptId, "dept");
    for (const char* tally : {"own_tally", "state_tally"})
        *m_sql << std::string("DELETE FROM ") + tally + " WHERE dept_id = :dept", use(deptId, "dept");
    *m_sql << "INSERT INTO own_tally SELECT discloser, dept_id, 3, COUNT(*) FROM task WHERE dept_id = :dept AND "
              "discloser <> '' GROUP BY discloser",
        use(deptId, "dept");
    *m_sql
        << "INSERT INTO own_tally SELECT username, dept_id, shown, COUNT(*) FROM task_receiver WHERE dept_id = :dept "
           "AND shown > 0 GROUP BY username, shown",
        use(deptId, "dept");
    *m_sql << "INSERT INTO state_tally SELECT dept_id, state, deadline / 86400000, COUNT(*) FROM task WHERE dept_id = "
              ":dept GROUP BY state, deadline / 86400000",
        use(deptId, "dept");
    *m_sql << "ANALYZE";
}

}  // namespace disclosure
