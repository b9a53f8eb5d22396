#include "service/domain/TaskLog.h"

#include <algorithm>

#include "service/domain/NewId.h"
#include "service/domain/Refusal.h"
#include "service/domain/TaskChecks.h"
#include "service/text/Text.h"

namespace disclosure {

void TaskLog::touch(Task& task) const {
    task.updatedAt = std::max(m_now, task.updatedAt + 1);
    task.updatedBy = m_username;
}

LogEntry TaskLog::entryOf(const std::string& deptId, LogEntry::Kind kind) const {
    LogEntry entry;
    entry.id = newId();
    entry.deptId = deptId;
    entry.username = m_username;
    entry.time = m_now;
    entry.kind = kind;
    return entry;
}

void TaskLog::note(const Task& task, LogEntry::Kind kind) {
    LogEntry entry = entryOf(task.deptId, kind);
    entry.taskId = task.id;
    entry.sourceName = task.name;
    m_store.addLog(entry);
}

void TaskLog::add(const TaskKey& key, LogEntry entry) {
    if (entry.kind < LogEntry::ClientKinds)
        throw Refusal(reasons::BadLogKind);
    for (const std::string* text : {&entry.sourceId, &entry.sourceUuid, &entry.sourceMd5, &entry.sourceExtension})
        checkField(*text, LongestKey);
    checkField(entry.sourceName, LongestFileName);
    entry.deptId = key.deptId;
    entry.taskId = key.id;
    entry.username = m_username;
    entry.time = m_now;
    if (entry.id.empty()) {
        entry.id = newId();
    } else if (!isId(entry.id)) {
        throw Refusal(reasons::BadElementId);
    } else if (const auto known = m_store.logEntry(key.deptId, key.id, entry.id)) {
        if (known->username == m_username && known->kind == entry.kind && known->sourceId == entry.sourceId)
            return;
        throw Refusal(reasons::LogIdTaken);
    }
    if (m_store.clientEntries(key.deptId, key.id, MostClientEntries) >= MostClientEntries)
        throw Refusal(reasons::TooManyEntries);
    m_store.addLog(entry);
}

Task storedTask(IStore& store, const TaskKey& key) {
    auto task = store.task(key.deptId, key.id);
    if (!task)
        throw Refusal(reasons::NoTask);
    return std::move(*task);
}

}  // namespace disclosure
