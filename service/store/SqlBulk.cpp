#include "service/store/NameIndex.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

namespace {

/// An insert that is prepared once; `bind` gives it the parts of `row` that it is run with.
template <class Row>
class Insert {
public:
    template <class Bind>
    Insert(soci::session& sql, const std::string& text, Bind&& bind) : m_statement(sql) {
        bind(m_statement, row);
        m_statement.alloc();
        m_statement.prepare(text);
        m_statement.define_and_bind();
    }
    void run() { m_statement.execute(true); }

    Row row;

private:
    soci::statement m_statement;
};

struct Child {
    std::string dept;
    long long rid = 0;
    int position = 0;
    std::string id;
    int ppid = 0;
    std::string target;
    long long time = 0;
};

struct DocRow {
    Child place;
    TaskDoc doc;
};

struct TaskRow {
    Task task;
    long long rid = 0;
    long long times[7] = {};
    long long deadline = 0;
    int published = 0;
    int state = 0;
    std::string search;
};

void bindPlace(soci::statement& s, Child& row) {
    s.exchange(use(row.dept, "dept"));
    s.exchange(use(row.rid, "rid"));
    s.exchange(use(row.position, "position"));
}

void bindLink(soci::statement& s, Child& row) {
    bindPlace(s, row);
    s.exchange(use(row.id, "id"));
    s.exchange(use(row.ppid, "ppid"));
    s.exchange(use(row.target, "target"));
}

/// Writes tasks with their lists, each kind of row by one prepared statement.
class Inserts {
public:
    explicit Inserts(soci::session& sql)
        : m_task(sql,
                 "INSERT INTO task (rid, dept_id, task_id, catalog_id, name, search_name, discloser, "
                 "construction_start, construction_end, plan_disclosure, actual_disclosure, expiry, published, remark, "
                 "state, deadline, updated_by, updated_at, confirmed_at) VALUES (:rid, :dept, :id, :catalog, :name, "
                 ":search, :discloser, :start, :end, :plan, :actual, :expiry, :published, :remark, :state, :deadline, "
                 ":by, :at, :confirmed)",
                 [](soci::statement& s, TaskRow& row) {
                     s.exchange(use(row.rid, "rid"));
                     s.exchange(use(row.task.deptId, "dept"));
                     s.exchange(use(row.task.id, "id"));
                     s.exchange(use(row.task.catalogId, "catalog"));
                     s.exchange(use(row.task.name, "name"));
                     s.exchange(use(row.search, "search"));
                     s.exchange(use(row.task.discloser, "discloser"));
                     const char* names[] = {"start", "end", "plan", "actual", "expiry", "at", "confirmed"};
                     for (int i = 0; i < 7; ++i)
                         s.exchange(use(row.times[i], names[i]));
                     s.exchange(use(row.published, "published"));
                     s.exchange(use(row.task.remark, "remark"));
                     s.exchange(use(row.state, "state"));
                     s.exchange(use(row.deadline, "deadline"));
                     s.exchange(use(row.task.updatedBy, "by"));
                 }),
          m_receiver(sql, "INSERT INTO task_receiver VALUES (:dept, :rid, :position, :id, :target, :time)",
                     [](soci::statement& s, Child& row) {
                         bindPlace(s, row);
                         s.exchange(use(row.id, "id"));
                         s.exchange(use(row.target, "target"));
                         s.exchange(use(row.time, "time"));
                     }),
          m_viewport(sql, "INSERT INTO task_viewport VALUES (:dept, :rid, :position, :id, :ppid, :target)", bindLink),
          m_node(sql, "INSERT INTO task_node VALUES (:dept, :rid, :position, :id, :ppid, :target)", bindLink),
          m_doc(sql,
                "INSERT INTO task_doc VALUES (:dept, :rid, :position, :id, :ppid, :name, :uuid, :md5, :size, "
                ":extension, :source, :ref)",
                [](soci::statement& s, DocRow& row) {
                    bindPlace(s, row.place);
                    s.exchange(use(row.doc.id, "id"));
                    s.exchange(use(row.doc.ppid, "ppid"));
                    s.exchange(use(row.doc.name, "name"));
                    s.exchange(use(row.doc.uuid, "uuid"));
                    s.exchange(use(row.doc.md5, "md5"));
                    s.exchange(use(row.doc.size, "size"));
                    s.exchange(use(row.doc.extension, "extension"));
                    s.exchange(use(row.doc.sourceType, "source"));
                    s.exchange(use(row.doc.refDocId, "ref"));
                }) {}

    void add(const Task& task, long long rid) {
        TaskRow& row = m_task.row;
        row.task = task;
        row.rid = rid;
        const std::int64_t times[] = {task.constructionStart, task.constructionEnd, task.planDisclosure,
                                      task.actualDisclosure,  task.expiry,          task.updatedAt,
                                      task.confirmedAt};
        std::copy(std::begin(times), std::end(times), row.times);
        row.deadline = task.deadline();
        row.published = task.published ? 1 : 0;
        row.state = static_cast<int>(task.state());
        row.search = searchForm(task.name);
        m_task.run();
        Child child{task.deptId, rid, 0, {}, 0, {}, 0};
        addAll(m_receiver, child, task.receivers,
               [](Child& c, const TaskReceiver& r) { c.id = r.id, c.target = r.username, c.time = r.confirmedAt; });
        addAll(m_viewport, child, task.viewports,
               [](Child& c, const TaskViewport& v) { c.id = v.id, c.ppid = v.ppid, c.target = v.viewportId; });
        addAll(m_node, child, task.nodes,
               [](Child& c, const TaskNode& n) { c.id = n.id, c.ppid = n.ppid, c.target = n.nodeId; });
        m_doc.row.place = child;
        for (const TaskDoc& doc : task.docs) {
            m_doc.row.doc = doc;
            m_doc.run();
            ++m_doc.row.place.position;
        }
    }

private:
    template <class List, class Fill>
    static void addAll(Insert<Child>& insert, const Child& start, const List& list, Fill&& fill) {
        insert.row = start;
        for (const auto& element : list) {
            fill(insert.row, element);
            insert.run();
            ++insert.row.position;
        }
    }

    Insert<TaskRow> m_task;
    Insert<Child> m_receiver;
    Insert<Child> m_viewport;
    Insert<Child> m_node;
    Insert<DocRow> m_doc;
};

struct Dropped {
    std::string type;
    std::string name;
    std::string text;
};

/// What the tables of the tasks keep up to date with every row, and can as well make at once at the end.
std::vector<Dropped> dropUpkeep(soci::session& sql) {
    std::vector<Dropped> all;
    {
        Dropped one;
        soci::statement rows =
            (sql.prepare << "SELECT type, name, sql FROM sqlite_master WHERE type IN ('index', 'trigger') AND tbl_name "
                            "IN ('task', 'task_receiver', 'task_doc') AND sql IS NOT NULL",
             into(one.type), into(one.name), into(one.text));
        rows.execute();
        while (rows.fetch())
            all.push_back(one);
    }
    for (const Dropped& one : all)
        sql << "DROP " + one.type + " " + one.name;
    return all;
}

}  // namespace

void SqlStore::addTasks(const std::string& deptId, const std::function<bool(Task&)>& next) {
    const auto dropped = dropUpkeep(*m_sql);
    long long before = 0;
    *m_sql << "SELECT COALESCE(MAX(rid), 0) FROM task", into(before);
    {
        Inserts inserts(*m_sql);
        long long rid = before;
        for (Task task; next(task);)
            inserts.add(task, ++rid);
    }
    for (const Dropped& one : dropped)
        *m_sql << one.text;
    *m_sql << "INSERT INTO task_gram (rowid, grams) SELECT rid, name_grams(dept_id, search_name) FROM task "
              "WHERE rid > :before",
        use(before, "before");
    *m_sql << "UPDATE catalog SET task_number = (SELECT COUNT(*) FROM task t WHERE t.dept_id = catalog.dept_id "
              "AND t.catalog_id = catalog.catalog_id) WHERE dept_id = :dept",
        use(deptId, "dept");
    *m_sql << "UPDATE catalog SET subtree_number = (WITH RECURSIVE below(id, number) AS (SELECT catalog.catalog_id, "
              "catalog.task_number UNION ALL SELECT c.catalog_id, c.task_number FROM below b CROSS JOIN catalog c "
              "WHERE c.dept_id = catalog.dept_id AND c.parent_id = b.id) SELECT SUM(number) FROM below) "
              "WHERE dept_id = :dept",
        use(deptId, "dept");
    *m_sql << "ANALYZE";
}

}  // namespace disclosure
