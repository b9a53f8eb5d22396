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

std::string listed(const std::vector<std::int64_t>& rids) {
    std::string text;
    for (const std::int64_t rid : rids)
        text += (text.empty() ? "" : ",") + std::to_string(rid);
    return text;
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

bool SqlStore::isOfOrganisation(const std::string& username, const std::string& deptId) {
    // Most are of the department itself, and that is told without going up and down the tree.
    return readNumber(queries::MemberOf, use(deptId, "dept"), use(username, "username")) > 0 ||
           readNumber(queries::SameOrganisation, use(username, "username"), use(deptId, "dept")) > 0;
}

void SqlStore::addTask(const Task& task) {
    writeTask(InsertTask, task);
    addLists(task, readNumber(queries::TaskRid, use(task.deptId, "dept"), use(task.id, "id")));
}

void SqlStore::putTask(const Task& task) {
    writeTask(UpdateTask, task);
    replaceLists(task);
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

void SqlStore::removeTask(const TaskKey& key) {
    m_statements.run("DELETE FROM task WHERE dept_id = :dept AND rid = :rid", use(key.deptId, "dept"),
                     use(key.rid, "rid"));
}

void SqlStore::replaceLists(const Task& task) {
    for (const char* table : {"task_receiver", "task_viewport", "task_node", "task_doc", "task_attachment"})
        m_statements.run(std::string("DELETE FROM ") + table + " WHERE dept_id = :dept AND task_rid = :rid",
                         use(task.deptId, "dept"), use(task.rid, "rid"));
    addLists(task, task.rid);
}

void SqlStore::addLists(const Task& task, std::int64_t rid) {
    const auto bind = [&](soci::statement& statement, const int& position, auto&&... own) {
        statement.exchange(use(task.deptId, "dept"));
        statement.exchange(use(rid, "rid"));
        statement.exchange(use(position, "position"));
        (statement.exchange(own), ...);
    };
    m_statements.runEach("INSERT INTO task_receiver VALUES (:dept, :rid, :position, :id, :username, :confirmed)",
                         task.receivers, [&](auto& statement, const TaskReceiver& r, const int& position) {
                             bind(statement, position, use(r.id, "id"), use(r.username, "username"),
                                  use(r.confirmedAt, "confirmed"));
                         });
    m_statements.runEach("INSERT INTO task_viewport VALUES (:dept, :rid, :position, :id, :ppid, :target)",
                         task.viewports, [&](auto& statement, const TaskViewport& v, const int& position) {
                             bind(statement, position, use(v.id, "id"), use(v.ppid, "ppid"),
                                  use(v.viewportId, "target"));
                         });
    m_statements.runEach("INSERT INTO task_node VALUES (:dept, :rid, :position, :id, :ppid, :target)", task.nodes,
                         [&](auto& statement, const TaskNode& n, const int& position) {
                             bind(statement, position, use(n.id, "id"), use(n.ppid, "ppid"), use(n.nodeId, "target"));
                         });
    m_statements.runEach(
        "INSERT INTO task_doc VALUES (:dept, :rid, :position, :id, :ppid, :name, :uuid, :md5, :size, :extension, "
        ":source, :ref)",
        task.docs, [&](auto& statement, const TaskDoc& d, const int& position) {
            bind(statement, position, use(d.id, "id"), use(d.ppid, "ppid"), use(d.name, "name"), use(d.uuid, "uuid"),
                 use(d.md5, "md5"), use(d.size, "size"), use(d.extension, "extension"), use(d.sourceType, "source"),
                 use(d.refDocId, "ref"));
        });
    m_statements.runEach(
        "INSERT INTO task_attachment VALUES (:dept, :rid, :position, :id, :name, :uuid, :md5, :size, :extension, "
        ":thumb, :thumbmd5, :thumbsize)",
        task.attachments, [&](auto& statement, const TaskAttachment& f, const int& position) {
            bind(statement, position, use(f.id, "id"), use(f.name, "name"), use(f.uuid, "uuid"), use(f.md5, "md5"),
                 use(f.size, "size"), use(f.extension, "extension"), use(f.thumbnailUuid, "thumb"),
                 use(f.thumbnailMd5, "thumbmd5"), use(f.thumbnailSize, "thumbsize"));
        });
}

}  // namespace disclosure
