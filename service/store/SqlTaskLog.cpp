#include <algorithm>

#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

void SqlStore::addLog(const LogEntry& e) {
    m_statements.run(
        "INSERT INTO task_log (dept_id, task_id, log_id, username, op_time, kind, source_id, source_name, source_uuid, "
        "source_md5, source_size, source_extension) VALUES (:dept, :task, :id, :username, :time, :kind, :sid, :sname, "
        ":suuid, :smd5, :ssize, :sext)",
        use(e.deptId, "dept"), use(e.taskId, "task"), use(e.id, "id"), use(e.username, "username"), use(e.time, "time"),
        use(e.kind, "kind"), use(e.sourceId, "sid"), use(e.sourceName, "sname"), use(e.sourceUuid, "suuid"),
        use(e.sourceMd5, "smd5"), use(e.sourceSize, "ssize"), use(e.sourceExtension, "sext"));
}

template <class... Used>
std::vector<LogEntry> SqlStore::readLog(const char* query, const std::string& deptId, const std::string& taskId,
                                        Used&&... used) {
    LogEntry e;
    e.deptId = deptId;
    e.taskId = taskId;
    return m_statements.list(query, e, into(e.id), into(e.username), into(e.time), into(e.kind), into(e.sourceId),
                             into(e.sourceName), into(e.sourceUuid), into(e.sourceMd5), into(e.sourceSize),
                             into(e.sourceExtension), into(e.realname), into(e.headUuid), use(deptId, "dept"),
                             use(taskId, "id"), std::forward<Used>(used)...);
}

std::vector<LogEntry> SqlStore::logOf(const LogFilter& f) {
    auto entries = readLog(queries::LogOfTask, f.deptId, f.taskId, use(f.kind, "kind"), use(f.username, "person"),
                           use(f.limit, "limit"), use(f.offset, "offset"));
    std::reverse(entries.begin(), entries.end());
    return entries;
}

std::optional<LogEntry> SqlStore::logEntry(const std::string& deptId, const std::string& taskId,
                                           const std::string& id) {
    auto found = readLog(queries::LogEntryById, deptId, taskId, use(id, "log"));
    if (found.empty())
        return std::nullopt;
    return std::move(found.front());
}

std::int64_t SqlStore::clientEntries(const std::string& deptId, const std::string& taskId, std::int64_t most) {
    return readNumber(queries::ClientEntries, use(deptId, "dept"), use(taskId, "id"), use(most, "most"));
}

template <class... Used>
std::vector<PushConfig> SqlStore::readPushConfigs(const char* query, Used&&... used) {
    std::vector<PushConfig> found;
    PushConfig c;
    int advance = 0;
    int overdue = 0;
    m_statements.each(
        query,
        [&] {
            c.notifyAdvance = advance != 0;
            c.notifyOverdue = overdue != 0;
            found.push_back(c);
        },
        into(c.id), into(c.deptId), into(advance), into(c.daysAdvance), into(c.advanceFrequency), into(overdue),
        into(c.overdueFrequency), std::forward<Used>(used)...);
    return found;
}

std::optional<PushConfig> SqlStore::pushConfig(const std::string& deptId) {
    auto found = readPushConfigs(queries::PushConfigOfDept, use(deptId, "dept"));
    if (found.empty())
        return std::nullopt;
    return std::move(found.front());
}

std::vector<PushConfig> SqlStore::remindingConfigs() {
    return readPushConfigs(queries::RemindingConfigs);
}

std::vector<PushConfig> SqlStore::pushConfigsOfMember(const std::string& username, const std::string& id) {
    return readPushConfigs(queries::PushConfigsOfMember, use(username, "username"), use(id, "id"));
}

void SqlStore::putPushConfig(const PushConfig& c) {
    const int advance = c.notifyAdvance ? 1 : 0;
    const int overdue = c.notifyOverdue ? 1 : 0;
    m_statements.run(
        "INSERT INTO push_config (dept_id, config_id, notify_advance, days_advance, advance_frequency, notify_overdue, "
        "overdue_frequency) VALUES (:dept, :id, :advance, :days, :afreq, :overdue, :ofreq) "
        "ON CONFLICT (dept_id) DO UPDATE SET config_id = excluded.config_id, "
        "notify_advance = excluded.notify_advance, days_advance = excluded.days_advance, "
        "advance_frequency = excluded.advance_frequency, notify_overdue = excluded.notify_overdue, "
        "overdue_frequency = excluded.overdue_frequency",
        use(c.deptId, "dept"), use(c.id, "id"), use(advance, "advance"), use(c.daysAdvance, "days"),
        use(c.advanceFrequency, "afreq"), use(overdue, "overdue"), use(c.overdueFrequency, "ofreq"));
    // The tasks were gone through under other settings, and notes of changes were used up under them.
    m_statements.run("DELETE FROM reminder_run WHERE dept_id = :dept", use(c.deptId, "dept"));
}

std::vector<Department> SqlStore::departmentsOf(const std::string& username) {
    Department d;
    return m_statements.list(queries::DepartmentsOf, d, into(d.id), into(d.name), into(d.parentId),
                             use(username, "username"));
}

std::vector<Person> SqlStore::colleaguesOf(const std::string& username) {
    Person p;
    return m_statements.list(queries::ColleaguesOf, p, into(p.username), into(p.realname), into(p.headUuid),
                             into(p.deptId), use(username, "username"));
}

}  // namespace disclosure
