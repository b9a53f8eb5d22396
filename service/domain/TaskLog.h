#pragma once

#include <string>
#include <utility>

#include "service/ports/IStore.h"
#include "service/ports/TaskRecords.h"

namespace disclosure {

/// Notes what a person does with tasks, within the transaction in which it is done.
class TaskLog {
public:
    /// Of those that clients note, so that nobody can fill the database with them.
    static constexpr std::int64_t MostClientEntries = 10'000;
    static constexpr std::int64_t PageSize = 1000;

    /// `username` is who acts.
    TaskLog(IStore& store, std::string username, std::int64_t now)
        : m_store(store), m_username(std::move(username)), m_now(now) {}

    /// Makes the task one that the person has just changed. The time of the last change is the task's version, so it
    /// never stands still.
    void touch(Task& task) const;
    void note(const Task& task, LogEntry::Kind kind);
    /// An entry without a task.
    LogEntry entryOf(const std::string& deptId, LogEntry::Kind kind) const;
    /// Notes what a client has done with the task; saying the same again is no error. Throws `Refusal`.
    void add(const TaskKey& key, LogEntry entry);

private:
    IStore& m_store;
    std::string m_username;
    std::int64_t m_now;
};

/// The task, of which the caller has made sure that the person may see it. Throws `Refusal` when it is gone.
Task storedTask(IStore& store, const TaskKey& key);

}  // namespace disclosure
