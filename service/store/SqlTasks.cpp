#include <unordered_map>

#include "service/store/NameIndex.h"
#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

namespace {

using TasksByRid = std::unordered_map<long long, Task*>;

std::string listed(const std::vector<long long>& rids) {
    std::string text;
    for (const long long rid : rids)
        text += (text.empty() ? "" : ",") + std::to_string(rid);
    return text;
}

/// Appends each row of a child table to its task; `fields` say where the columns go.
template <class Row, class... Fields>
void readList(soci::session& sql, const std::string& select, const std::string& deptId, const std::string& rids,
              const TasksByRid& tasks, std::vector<Row> Task::*list, Row& row, Fields&... fields) {
    long long rid = 0;
    soci::statement rows = ((sql.prepare << select + " WHERE l.dept_id = :dept AND l.task_rid IN (" + rids +
                                                ") ORDER BY l.task_rid, l.position",
                             into(rid)),
                            ..., into(fields));
    rows.exchange(use(deptId, "dept"));
    rows.define_and_bind();
    rows.execute();
    while (rows.fetch())
        (tasks.at(rid)->*list).push_back(row);
}

void readLists(soci::session& sql, const std::string& deptId, const std::string& rids, const TasksByRid& tasks) {
    TaskReceiver receiver;
    long long confirmedAt = 0;
    {
        long long rid = 0;
        soci::statement rows =
            (sql.prepare << "SELECT l.task_rid, l.receiver_id, l.username, l.confirmed_at, COALESCE(p.realname, ''), "
                            "COALESCE(p.head_uuid, '') FROM task_receiver l LEFT JOIN person p ON p.username = "
                            "l.username WHERE l.dept_id = :dept AND l.task_rid IN (" +
                                rids + ") ORDER BY l.task_rid, l.position",
             into(rid), into(receiver.id), into(receiver.username), into(confirmedAt), into(receiver.realname),
             into(receiver.headUuid), use(deptId, "dept"));
        rows.execute();
        while (rows.fetch()) {
            receiver.confirmedAt = confirmedAt;
            tasks.at(rid)->receivers.push_back(receiver);
        }
    }
    TaskViewport viewport;
    readList(sql, "SELECT l.task_rid, l.link_id, l.ppid, l.viewport_id FROM task_viewport l", deptId, rids, tasks,
             static_cast<std::vector<TaskViewport> Task::*>(&Task::viewports), viewport, viewport.id, viewport.ppid,
             viewport.viewportId);
    TaskNode node;
    readList(sql, "SELECT l.task_rid, l.link_id, l.ppid, l.node_id FROM task_node l", deptId, rids, tasks,
             static_cast<std::vector<TaskNode> Task::*>(&Task::nodes), node, node.id, node.ppid, node.nodeId);
    TaskDoc doc;
    readList(sql,
             "SELECT l.task_rid, l.doc_id, l.ppid, l.name, l.uuid, l.md5, l.size, l.extension, l.source_type, "
             "l.ref_doc_id FROM task_doc l",
             deptId, rids, tasks, static_cast<std::vector<TaskDoc> Task::*>(&Task::docs), doc, doc.id, doc.ppid,
             doc.name, doc.uuid, doc.md5, doc.size, doc.extension, doc.sourceType, doc.refDocId);
    TaskAttachment file;
    readList(sql,
             "SELECT l.task_rid, l.attachment_id, l.name, l.uuid, l.md5, l.size, l.extension, l.thumbnail_uuid, "
             "l.thumbnail_md5, l.thumbnail_size FROM task_attachment l",
             deptId, rids, tasks, &Task::attachments, file, file.id, file.name, file.uuid, file.md5, file.size,
             file.extension, file.thumbnailUuid, file.thumbnailMd5, file.thumbnailSize);
}

}  // namespace

std::vector<Task> SqlStore::readTasks(const std::string& deptId, const std::vector<long long>& rids) {
    std::vector<Task> tasks(rids.size());
    if (rids.empty())
        return tasks;
    TasksByRid byRid;
    for (std::size_t i = 0; i < rids.size(); ++i)
        byRid[rids[i]] = &tasks[i];

    Task t;
    t.deptId = deptId;
    long long rid = 0;
    long long times[8] = {};
    int published = 0;
    const std::string in = listed(rids);
    {
        soci::statement rows =
            (m_sql->prepare << std::string(queries::TaskRows) + in + ")", into(rid), into(t.id), into(t.catalogId),
             into(t.name), into(t.discloser), into(times[0]), into(times[1]), into(times[2]), into(times[3]),
             into(times[4]), into(published), into(t.remark), into(t.updatedBy), into(times[5]), into(times[6]),
             into(t.confirmRemark), into(times[7]), into(t.deptName), into(t.discloserRealname),
             into(t.discloserHeadUuid), into(t.updatedByName), use(deptId, "dept"));
        rows.execute();
        while (rows.fetch()) {
            t.rid = rid;
            t.published = published != 0;
            t.constructionStart = times[0];
            t.constructionEnd = times[1];
            t.planDisclosure = times[2];
            t.actualDisclosure = times[3];
            t.expiry = times[4];
            t.updatedAt = times[5];
            t.confirmedAt = times[6];
            t.urgedAt = times[7];
            *byRid.at(rid) = t;
        }
    }
    readLists(*m_sql, deptId, in, byRid);
    return tasks;
}

std::optional<Task> SqlStore::task(const std::string& deptId, const std::string& id) {
    long long rid = 0;
    soci::statement row = (m_sql->prepare << queries::TaskRid, into(rid), use(deptId, "dept"), use(id, "id"));
    if (!row.execute(true))
        return std::nullopt;
    return std::move(readTasks(deptId, {rid}).front());
}

std::vector<TaskKey> SqlStore::tasksOfPerson(const std::string& username, const std::string& id) {
    std::vector<TaskKey> found;
    TaskKey key;
    long long rid = 0;
    soci::statement rows = (m_sql->prepare << queries::TasksOfPerson, into(rid), into(key.deptId), into(key.id),
                            use(username, "username"), use(id, "id"));
    rows.execute();
    while (rows.fetch()) {
        key.rid = rid;
        found.push_back(key);
    }
    return found;
}

bool SqlStore::isOfOrganisation(const std::string& username, const std::string& deptId) {
    long long roots = 0;
    soci::statement row =
        (m_sql->prepare << queries::SameOrganisation, into(roots), use(username, "username"), use(deptId, "dept"));
    row.execute(true);
    return roots > 0;
}

void SqlStore::addTask(const Task& task) {
    run("INSERT INTO task (dept_id, task_id, catalog_id, name, search_name) VALUES (:dept, :id, :catalog, :name, "
        ":search)",
        use(task.deptId, "dept"), use(task.id, "id"), use(task.catalogId, "catalog"), use(task.name, "name"),
        use(searchForm(task.name), "search"));
    Task stored = task;
    long long rid = 0;
    soci::statement row = (m_sql->prepare << queries::TaskRid, into(rid), use(task.deptId, "dept"), use(task.id, "id"));
    row.execute(true);
    stored.rid = rid;
    writeTask(stored);
    writeLists(stored, true);
}

void SqlStore::putTask(const Task& task) {
    writeTask(task);
    writeLists(task, false);
}

void SqlStore::writeTask(const Task& t) {
    const long long rid = t.rid;
    const int published = t.published ? 1 : 0;
    const int state = static_cast<int>(t.state());
    const long long deadline = t.deadline();
    const long long start = t.constructionStart;
    const long long end = t.constructionEnd;
    const long long plan = t.planDisclosure;
    const long long actual = t.actualDisclosure;
    const long long expiry = t.expiry;
    const long long updatedAt = t.updatedAt;
    const long long confirmedAt = t.confirmedAt;
    const long long urgedAt = t.urgedAt;
    const std::string search = searchForm(t.name);
    run("UPDATE task SET catalog_id = :catalog, name = :name, search_name = :search, discloser = :discloser, "
        "construction_start = :start, construction_end = :end, plan_disclosure = :plan, actual_disclosure = :actual, "
        "expiry = :expiry, published = :published, remark = :remark, state = :state, deadline = :deadline, "
        "updated_by = :by, updated_at = :at, confirmed_at = :confirmed, confirm_remark = :confirm, urged_at = :urged "
        "WHERE rid = :rid",
        use(t.catalogId, "catalog"), use(t.name, "name"), use(search, "search"), use(t.discloser, "discloser"),
        use(start, "start"), use(end, "end"), use(plan, "plan"), use(actual, "actual"), use(expiry, "expiry"),
        use(published, "published"), use(t.remark, "remark"), use(state, "state"), use(deadline, "deadline"),
        use(t.updatedBy, "by"), use(updatedAt, "at"), use(confirmedAt, "confirmed"), use(t.confirmRemark, "confirm"),
        use(urgedAt, "urged"), use(rid, "rid"));
}

void SqlStore::removeTask(const TaskKey& key) {
    const long long rid = key.rid;
    run("DELETE FROM task WHERE dept_id = :dept AND rid = :rid", use(key.deptId, "dept"), use(rid, "rid"));
}

namespace {

/// Writes one list, in place of what there is unless the task is new; `bind` names the element's own columns.
template <class Row, class Bind>
void writeList(soci::session& sql, const char* table, const char* columns, const Task& task, bool isNew,
               const std::vector<Row>& list, Bind&& bind) {
    const long long rid = task.rid;
    if (!isNew)
        sql << std::string("DELETE FROM ") + table + " WHERE dept_id = :dept AND task_rid = :rid",
            use(task.deptId, "dept"), use(rid, "rid");
    if (list.empty())
        return;
    Row row;
    int position = 0;
    soci::statement insert(sql);
    insert.exchange(use(task.deptId, "dept"));
    insert.exchange(use(rid, "rid"));
    insert.exchange(use(position, "position"));
    bind(insert, row);
    insert.alloc();
    insert.prepare(std::string("INSERT INTO ") + table + " VALUES (:dept, :rid, :position, " + columns + ")");
    insert.define_and_bind();
    for (const Row& element : list) {
        row = element;
        insert.execute(true);
        ++position;
    }
}

}  // namespace

void SqlStore::writeLists(const Task& task, bool isNew) {
    std::vector<std::pair<TaskReceiver, long long>> receivers;
    for (const TaskReceiver& receiver : task.receivers)
        receivers.emplace_back(receiver, receiver.confirmedAt);
    writeList(*m_sql, "task_receiver", ":id, :username, :confirmed", task, isNew, receivers,
              [](auto& insert, auto& row) {
                  insert.exchange(use(row.first.id, "id"));
                  insert.exchange(use(row.first.username, "username"));
                  insert.exchange(use(row.second, "confirmed"));
              });
    writeList(*m_sql, "task_viewport", ":id, :ppid, :target", task, isNew, task.viewports, [](auto& insert, auto& row) {
        insert.exchange(use(row.id, "id"));
        insert.exchange(use(row.ppid, "ppid"));
        insert.exchange(use(row.viewportId, "target"));
    });
    writeList(*m_sql, "task_node", ":id, :ppid, :target", task, isNew, task.nodes, [](auto& insert, auto& row) {
        insert.exchange(use(row.id, "id"));
        insert.exchange(use(row.ppid, "ppid"));
        insert.exchange(use(row.nodeId, "target"));
    });
    writeList(*m_sql, "task_doc", ":id, :ppid, :name, :uuid, :md5, :size, :extension, :source, :ref", task, isNew,
              task.docs, [](auto& insert, auto& row) {
                  insert.exchange(use(row.id, "id"));
                  insert.exchange(use(row.ppid, "ppid"));
                  insert.exchange(use(row.name, "name"));
                  insert.exchange(use(row.uuid, "uuid"));
                  insert.exchange(use(row.md5, "md5"));
                  insert.exchange(use(row.size, "size"));
                  insert.exchange(use(row.extension, "extension"));
                  insert.exchange(use(row.sourceType, "source"));
                  insert.exchange(use(row.refDocId, "ref"));
              });
    writeList(*m_sql, "task_attachment", ":id, :name, :uuid, :md5, :size, :extension, :thumb, :thumbmd5, :thumbsize",
              task, isNew, task.attachments, [](auto& insert, auto& row) {
                  insert.exchange(use(row.id, "id"));
                  insert.exchange(use(row.name, "name"));
                  insert.exchange(use(row.uuid, "uuid"));
                  insert.exchange(use(row.md5, "md5"));
                  insert.exchange(use(row.size, "size"));
                  insert.exchange(use(row.extension, "extension"));
                  insert.exchange(use(row.thumbnailUuid, "thumb"));
                  insert.exchange(use(row.thumbnailMd5, "thumbmd5"));
                  insert.exchange(use(row.thumbnailSize, "thumbsize"));
              });
}

}  // namespace disclosure
