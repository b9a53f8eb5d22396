#include <algorithm>
#include <functional>
#include <tuple>
#include <unordered_map>

#include "service/store/NameIndex.h"
#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

namespace {

constexpr auto InsertTask =
    "INSERT INTO task (dept_id, task_id, catalog_id, name, search_name, discloser, construction_start, "
    "construction_end, plan_disclosure, actual_disclosure, expiry, published, remark, state, deadline, updated_by, "
    "updated_at, confirmed_at, confirm_remark, urged_at) VALUES (:dept, :id, :catalog, :name, :search, :discloser, "
    ":start, :end, :plan, :actual, :expiry, :published, :remark, :state, :deadline, :by, :at, :confirmed, :confirm, "
    ":urged)";
constexpr auto UpdateTask =
    "UPDATE task SET catalog_id = :catalog, name = :name, search_name = :search, discloser = :discloser, "
    "construction_start = :start, construction_end = :end, plan_disclosure = :plan, actual_disclosure = :actual, "
    "expiry = :expiry, published = :published, remark = :remark, state = :state, deadline = :deadline, "
    "updated_by = :by, updated_at = :at, confirmed_at = :confirmed, confirm_remark = :confirm, urged_at = :urged "
    "WHERE dept_id = :dept AND task_id = :id";

/// What no index knows, as long as nothing else has changed: the parts that progress without a new state.
constexpr auto UpdateProgress =
    "UPDATE task SET remark = :remark, updated_by = :by, updated_at = :at, confirmed_at = :confirmed, "
    "confirm_remark = :confirm, urged_at = :urged WHERE dept_id = :dept AND task_id = :id";

/// What the indexes and triggers know of the task, but for its people, its state, and the time of its last change.
auto knownOf(const Task& t) {
    return std::tie(t.catalogId, t.name, t.discloser, t.constructionStart, t.constructionEnd, t.planDisclosure,
                    t.actualDisclosure, t.expiry, t.published);
}

/// `each` runs a query, given what is called after each row and what the row goes to.
template <class Each>
void readLists(const Each& each, const std::string& deptId, const std::string& rids,
               const std::unordered_map<std::int64_t, Task*>& tasks) {
    const auto read = [&](const char* columns, const auto& row, const auto& add, auto&&... fields) {
        std::int64_t rid = 0;
        each(
            std::string("SELECT l.task_rid, ") + columns + " WHERE l.dept_id = :dept AND l.task_rid IN (" + rids +
                ") ORDER BY l.task_rid, l.position",
            [&] { add(*tasks.at(rid), row); }, into(rid), into(fields)..., use(deptId, "dept"));
    };
    TaskReceiver receiver;
    read(
        "l.receiver_id, l.username, l.confirmed_at, COALESCE(p.realname, ''), COALESCE(p.head_uuid, '') "
        "FROM task_receiver l LEFT JOIN person p ON p.username = l.username",
        receiver, [](Task& task, const TaskReceiver& row) { task.receivers.push_back(row); }, receiver.id,
        receiver.username, receiver.confirmedAt, receiver.realname, receiver.headUuid);
    TaskViewport viewport;
    read(
        "l.link_id, l.ppid, l.viewport_id FROM task_viewport l", viewport,
        [](Task& task, const TaskViewport& row) { task.viewports.push_back(row); }, viewport.id, viewport.ppid,
        viewport.viewportId);
    TaskNode node;
    read(
        "l.link_id, l.ppid, l.node_id FROM task_node l", node,
        [](Task& task, const TaskNode& row) { task.nodes.push_back(row); }, node.id, node.ppid, node.nodeId);
    TaskDoc doc;
    read(
        "l.doc_id, l.ppid, l.name, l.uuid, l.md5, l.size, l.extension, l.source_type, l.ref_doc_id FROM task_doc l",
        doc, [](Task& task, const TaskDoc& row) { task.docs.push_back(row); }, doc.id, doc.ppid, doc.name, doc.uuid,
        doc.md5, doc.size, doc.extension, doc.sourceType, doc.refDocId);
    TaskAttachment file;
    read(
        "l.attachment_id, l.name, l.uuid, l.md5, l.size, l.extension, l.thumbnail_uuid, l.thumbnail_md5, "
        "l.thumbnail_size FROM task_attachment l",
        file, [](Task& task, const TaskAttachment& row) { task.attachments.push_back(row); }, file.id, file.name,
        file.uuid, file.md5, file.size, file.extension, file.thumbnailUuid, file.thumbnailMd5, file.thumbnailSize);
}

}  // namespace

std::vector<Task> SqlStore::readTasks(const std::string& deptId, const std::vector<std::int64_t>& rids) {
    std::vector<Task> tasks(rids.size());
    if (rids.empty())
        return tasks;
    std::unordered_map<std::int64_t, Task*> byRid;
    for (std::size_t i = 0; i < rids.size(); ++i)
        byRid[rids[i]] = &tasks[i];

    const auto readAll = [&](const auto& each, const std::string& in) {
        Task t;
        t.deptId = deptId;
        int published = 0;
        each(
            queries::TaskRows + in + ")",
            [&] {
                t.published = published != 0;
                *byRid.at(t.rid) = t;
            },
            into(t.rid), into(t.id), into(t.catalogId), into(t.name), into(t.discloser), into(t.constructionStart),
            into(t.constructionEnd), into(t.planDisclosure), into(t.actualDisclosure), into(t.expiry), into(published),
            into(t.remark), into(t.updatedBy), into(t.updatedAt), into(t.confirmedAt), into(t.confirmRemark),
            into(t.urgedAt), into(t.deptName), into(t.discloserRealname), into(t.discloserHeadUuid),
            into(t.updatedByName), use(deptId, "dept"));
        readLists(each, deptId, in, byRid);
    };
    if (rids.size() == 1) {
        // The one text that is always the same, so that it can be kept.
        const auto each = [&](const std::string& text, const auto& take, auto&&... bound) {
            m_statements.each(text, take, bound..., use(rids.front(), "rid"));
        };
        readAll(each, ":rid");
    } else {
        const auto each = [this](const std::string& text, const auto& take, auto&&... bound) {
            m_statements.eachOfOnce(text, take, [&](soci::statement& statement) { (statement.exchange(bound), ...); });
        };
        readAll(each, listed(rids));
    }
    return tasks;
}

std::optional<Task> SqlStore::task(const std::string& deptId, const std::string& id) {
    std::int64_t rid = 0;
    if (!m_statements.one(queries::TaskRid, into(rid), use(deptId, "dept"), use(id, "id")))
        return std::nullopt;
    return std::move(readTasks(deptId, {rid}).front());
}

std::vector<TaskKey> SqlStore::tasksOfPerson(const std::string& username, const std::string& id) {
    TaskKey key;
    return m_statements.list(queries::TasksOfPerson, key, into(key.rid), into(key.deptId), into(key.id),
                             use(username, "username"), use(id, "id"));
}

std::vector<std::string> SqlStore::strangers(const std::vector<std::string>& usernames, const std::string& deptId) {
    if (usernames.empty())
        return {};
    const std::string people = jsonOf(usernames);
    std::string username;
    return m_statements.list(queries::Strangers, username, into(username), use(people, "people"), use(deptId, "dept"));
}

void SqlStore::addTask(const Task& task) {
    std::int64_t rid = 0;
    // Its id may be that of a task that has gone with its catalog.
    if (m_statements.one(queries::StoredTaskRid, into(rid), use(task.deptId, "dept"), use(task.id, "id")))
        clearNow(task.deptId, rid);
    writeTask(InsertTask, task);
    writeLists(task, {}, readNumber("SELECT last_insert_rowid()"));
}

void SqlStore::putTask(const Task& task, const Task& before) {
    const bool progresses =
        knownOf(task) == knownOf(before) && task.receivers == before.receivers && task.state() == before.state();
    if (progresses)
        m_statements.run(UpdateProgress, use(task.remark, "remark"), use(task.updatedBy, "by"),
                         use(task.updatedAt, "at"), use(task.confirmedAt, "confirmed"),
                         use(task.confirmRemark, "confirm"), use(task.urgedAt, "urged"), use(task.deptId, "dept"),
                         use(task.id, "id"));
    else
        writeTask(UpdateTask, task);
    writeLists(task, before, task.rid);
}

void SqlStore::writeTask(const char* statement, const Task& t) {
    m_statements.run(statement, use(t.deptId, "dept"), use(t.id, "id"), use(t.catalogId, "catalog"),
                     use(t.name, "name"), use(searchForm(t.name), "search"), use(t.discloser, "discloser"),
                     use(t.constructionStart, "start"), use(t.constructionEnd, "end"), use(t.planDisclosure, "plan"),
                     use(t.actualDisclosure, "actual"), use(t.expiry, "expiry"), use(t.published ? 1 : 0, "published"),
                     use(t.remark, "remark"), use(static_cast<int>(t.state()), "state"), use(t.deadline(), "deadline"),
                     use(t.updatedBy, "by"), use(t.updatedAt, "at"), use(t.confirmedAt, "confirmed"),
                     use(t.confirmRemark, "confirm"), use(t.urgedAt, "urged"));
}

void SqlStore::removeTasks(const std::vector<TaskKey>& keys, const LogEntry& entry) {
    std::vector<std::int64_t> rids;
    for (const TaskKey& key : keys)
        rids.push_back(key.rid);
    clearTasks(rids, entry);
}

void SqlStore::clearTasks(const std::vector<std::int64_t>& rids, const LogEntry& entry) {
    const std::string in = " WHERE +dept_id = :dept AND rid IN (" + listed(rids) + ")";
    m_statements.runOnce(
        "INSERT INTO task_log (dept_id, task_id, log_id, username, op_time, kind, source_name) SELECT dept_id, "
        "task_id, "
        ":log || '-' || rid, :username, :time, :kind, name FROM task" +
            in,
        use(entry.id, "log"), use(entry.username, "username"), use(entry.time, "time"), use(entry.kind, "kind"),
        use(entry.deptId, "dept"));
    m_statements.runOnce("DELETE FROM task" + in, use(entry.deptId, "dept"));
}

void SqlStore::clearNow(const std::string& deptId, std::int64_t rid) {
    LogEntry entry;
    std::int64_t removal = 0;
    if (!m_statements.one(queries::RemovalOfTask, into(removal), into(entry.id), into(entry.username), into(entry.time),
                          use(deptId, "dept"), use(rid, "rid")))
        return;
    entry.deptId = deptId;
    entry.kind = LogEntry::Deleted;
    clearTasks({rid}, entry);
    m_statements.run("UPDATE removal SET tasks = tasks - 1 WHERE rid = :removal", use(removal, "removal"));
}

template <class Element, class Same, class Bind>
void SqlStore::writeList(const Task& task, std::int64_t rid, const char* remove, const char* add,
                         const std::vector<Element>& list, const std::vector<Element>& before, Same&& same,
                         Bind&& bind) {
    std::vector<int> gone;
    std::vector<int> come;
    for (std::size_t i = 0; i < std::max(list.size(), before.size()); ++i) {
        if (i < list.size() && i < before.size() && same(list[i], before[i]))
            continue;
        if (i < before.size())
            gone.push_back(static_cast<int>(i));
        if (i < list.size())
            come.push_back(static_cast<int>(i));
    }
    const auto bindKey = [&](soci::statement& statement, const int& position) {
        statement.exchange(use(task.deptId, "dept"));
        statement.exchange(use(rid, "rid"));
        statement.exchange(use(position, "position"));
    };
    m_statements.runEach(remove, before, gone, [&](soci::statement& statement, const Element&, const int& position) {
        bindKey(statement, position);
    });
    m_statements.runEach(add, list, come, [&](soci::statement& statement, const Element& element, const int& position) {
        bindKey(statement, position);
        bind(statement, element);
    });
}

#define DISCLOSURE_FORGET(list) \
    "DELETE FROM " list " WHERE dept_id = :dept AND task_rid = :rid AND position = :position"
void SqlStore::writeLists(const Task& task, const Task& before, std::int64_t rid) {
    const auto exchange = [](soci::statement& statement, auto&&... own) { (statement.exchange(own), ...); };
    const int published = task.published ? 1 : 0;
    writeList(
        task, rid, DISCLOSURE_FORGET("task_receiver"),
        "INSERT INTO task_receiver (dept_id, task_rid, position, receiver_id, username, confirmed_at, shown) VALUES "
        "(:dept, :rid, :position, :id, :username, :confirmed, CASE WHEN :published = 0 THEN 0 WHEN :username = "
        ":discloser THEN 2 ELSE 1 END)",
        task.receivers, before.receivers,
        [](const TaskReceiver& a, const TaskReceiver& b) { return a == b && a.confirmedAt == b.confirmedAt; },
        [&](soci::statement& statement, const TaskReceiver& r) {
            exchange(statement, use(r.id, "id"), use(r.username, "username"), use(r.confirmedAt, "confirmed"),
                     use(published, "published"), use(task.discloser, "discloser"));
        });
    writeList(task, rid, DISCLOSURE_FORGET("task_viewport"),
              "INSERT INTO task_viewport VALUES (:dept, :rid, :position, :id, :ppid, :target)", task.viewports,
              before.viewports, std::equal_to<>(), [&](soci::statement& statement, const TaskViewport& v) {
                  exchange(statement, use(v.id, "id"), use(v.ppid, "ppid"), use(v.viewportId, "target"));
              });
    writeList(task, rid, DISCLOSURE_FORGET("task_node"),
              "INSERT INTO task_node VALUES (:dept, :rid, :position, :id, :ppid, :target)", task.nodes, before.nodes,
              std::equal_to<>(), [&](soci::statement& statement, const TaskNode& n) {
                  exchange(statement, use(n.id, "id"), use(n.ppid, "ppid"), use(n.nodeId, "target"));
              });
    writeList(task, rid, DISCLOSURE_FORGET("task_doc"),
              "INSERT INTO task_doc VALUES (:dept, :rid, :position, :id, :ppid, :name, :uuid, :md5, :size, :extension, "
              ":source, :ref)",
              task.docs, before.docs, std::equal_to<>(), [&](soci::statement& statement, const TaskDoc& d) {
                  exchange(statement, use(d.id, "id"), use(d.ppid, "ppid"), use(d.name, "name"), use(d.uuid, "uuid"),
                           use(d.md5, "md5"), use(d.size, "size"), use(d.extension, "extension"),
                           use(d.sourceType, "source"), use(d.refDocId, "ref"));
              });
    writeList(task, rid, DISCLOSURE_FORGET("task_attachment"),
              "INSERT INTO task_attachment VALUES (:dept, :rid, :position, :id, :name, :uuid, :md5, :size, :extension, "
              ":thumb, :thumbmd5, :thumbsize)",
              task.attachments, before.attachments, std::equal_to<>(),
              [&](soci::statement& statement, const TaskAttachment& f) {
                  exchange(statement, use(f.id, "id"), use(f.name, "name"), use(f.uuid, "uuid"), use(f.md5, "md5"),
                           use(f.size, "size"), use(f.extension, "extension"), use(f.thumbnailUuid, "thumb"),
                           use(f.thumbnailMd5, "thumbmd5"), use(f.thumbnailSize, "thumbsize"));
              });
}
#undef DISCLOSURE_FORGET

}  // namespace disclosure
