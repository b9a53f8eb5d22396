#pragma once

#include <chrono>

#include "service/domain/Demo.h"
#include "service/domain/Reminders.h"
#include "tests/service/TestService.h"

namespace disclosure::testing {

inline bool always() {
    return true;
}

/// A moment of 2026 at the demonstration's site, eight hours ahead of UTC. Days beyond a month's end count on.
inline std::int64_t at(unsigned month, int day, int hour = 0, int minute = 0) {
    using namespace std::chrono;
    const sys_days first{year{2026} / static_cast<int>(month) / 1};
    return duration_cast<milliseconds>((first + days(day - 1) + hours(hour - 8) + minutes(minute)).time_since_epoch())
        .count();
}

/// A task of the demonstration's department: chenwei discloses to liuyang, and to zhoujie from the other department.
inline Task taskFor(const std::string& id, std::int64_t plan, std::int64_t expiry) {
    Task task;
    task.deptId = DemoDept;
    task.id = id;
    task.catalogId = "demo-catalog-4";
    task.name = "钢筋" + id;
    task.discloser = "chenwei";
    task.published = true;
    task.planDisclosure = plan;
    task.expiry = expiry;
    for (const char* receiver : {"liuyang", "zhoujie"})
        task.receivers.push_back({std::string("r-") + receiver, receiver, 0, "", ""});
    return task;
}

/// Stores what `change` does to the task.
template <class Change>
void alterTask(IStore& store, const std::string& id, Change&& change) {
    const Task before = store.task(DemoDept, id).value();
    Task task = before;
    change(task);
    store.putTask(task, before);
}

inline void removeTask(IStore& store, const std::string& id) {
    LogEntry entry;
    entry.deptId = DemoDept;
    store.removeTasks({{store.task(DemoDept, id)->rid, DemoDept, id}}, entry);
}

/// The demonstration's people on a database, with settings that remind of everything, and a clock of the test's.
class ReminderTest : public ::testing::Test {
protected:
    ReminderTest() {
        database.migrate();
        store = database.connect();
        seedDemo(*store, Passwords(Passwords::Cost::Lowest));
        configure(2, 2);
    }
    static PushConfig configOf(std::int32_t advance, std::int32_t overdue) {
        return {"config", DemoDept, advance != 0, 3, std::max(1, advance), overdue != 0, std::max(1, overdue)};
    }
    /// Frequencies; 0 does without.
    void configure(std::int32_t advance, std::int32_t overdue) { store->putPushConfig(configOf(advance, overdue)); }
    void add(const Task& task) { store->addTask(task); }
    template <class Change>
    void alter(const std::string& id, Change&& change) {
        alterTask(*store, id, std::forward<Change>(change));
    }
    void remove(const std::string& id) { removeTask(*store, id); }
    std::int64_t remind() { return rules.run(*store, always); }
    std::int64_t remindAt(std::int64_t time) {
        now = time;
        return remind();
    }
    std::vector<std::string> textsOf(const std::string& username) {
        std::vector<std::string> texts;
        for (const Message& message : store->pageMessages(username, 0, 1000).messages)
            texts.push_back(message.text);
        return texts;
    }
    long long number(const std::string& query) const {
        long long value = 0;
        soci::session(soci::sqlite3, "dbname=" + file) << query, soci::into(value);
        return value;
    }
    std::size_t countOf(const std::string& username) { return textsOf(username).size(); }

    TempFolder folder;
    std::string file = folder.file("disclosure.db");
    SqliteDatabase database{file};
    std::unique_ptr<IStore> store;
    std::atomic<std::int64_t> now{at(11, 21, 9)};
    ReminderSettings settings;
    Reminders rules{settings, [this] { return now.load(); }};
};

}  // namespace disclosure::testing
