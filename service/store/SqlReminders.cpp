#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

std::optional<ReminderRun> SqlStore::reminderRun(const std::string& deptId, ReminderKind kind) {
    ReminderRun run;
    run.deptId = deptId;
    run.kind = kind;
    if (!m_statements.one(queries::ReminderRunOf, into(run.day), into(run.place.time), into(run.place.rid),
                          use(deptId, "dept"), use(static_cast<int>(kind), "kind")))
        return std::nullopt;
    return run;
}

void SqlStore::putReminderRun(const ReminderRun& run) {
    m_statements.run(
        "INSERT INTO reminder_run (dept_id, kind, day, place_time, place_rid) VALUES (:dept, :kind, :day, :time, :rid) "
        "ON CONFLICT (dept_id, kind) DO UPDATE SET day = excluded.day, place_time = excluded.place_time, place_rid = "
        "excluded.place_rid",
        use(run.deptId, "dept"), use(static_cast<int>(run.kind), "kind"), use(run.day, "day"),
        use(run.place.time, "time"), use(run.place.rid, "rid"));
}

std::vector<ReminderPlace> SqlStore::undisclosedTasks(const std::string& deptId, ReminderKind kind,
                                                      const ReminderPlace& after, std::int64_t until,
                                                      std::int64_t most) {
    ReminderPlace place;
    return m_statements.list(
        kind == ReminderKind::Advance ? queries::UndisclosedByPlan : queries::UndisclosedByDeadline, place,
        into(place.time), into(place.rid), use(deptId, "dept"), use(after.time, "time"), use(after.rid, "rid"),
        use(until, "until"), use(most, "most"));
}

std::vector<std::int64_t> SqlStore::changedTasks(const std::string& deptId, std::int64_t most) {
    std::int64_t rid = 0;
    return m_statements.list(queries::ChangedTasks, rid, into(rid), use(deptId, "dept"), use(most, "most"));
}

void SqlStore::forgetChangedTask(const std::string& deptId, std::int64_t rid) {
    m_statements.run("DELETE FROM reminder_changed WHERE dept_id = :dept AND task_rid = :rid", use(deptId, "dept"),
                     use(rid, "rid"));
}

std::vector<Task> SqlStore::tasksOf(const std::string& deptId, const std::vector<std::int64_t>& rids) {
    auto tasks = readTasks(deptId, rids);
    std::erase_if(tasks, [](const Task& task) { return task.rid == 0; });
    return tasks;
}

std::set<std::string> SqlStore::remindedPeople(const std::string& deptId, const std::string& taskId, ReminderKind kind,
                                               const std::string& due) {
    std::set<std::string> found;
    std::string username;
    m_statements.each(
        queries::RemindedPeople, [&] { found.insert(username); }, into(username), use(deptId, "dept"),
        use(taskId, "id"), use(static_cast<int>(kind), "kind"), use(due, "due"));
    return found;
}

void SqlStore::addReminder(const Reminder& r) {
    m_statements.run(
        "INSERT INTO reminder (dept_id, task_id, kind, due, username, made_at) VALUES (:dept, :id, :kind, :due, "
        ":username, :made)",
        use(r.deptId, "dept"), use(r.taskId, "id"), use(static_cast<int>(r.kind), "kind"), use(r.due, "due"),
        use(r.username, "username"), use(r.madeAt, "made"));
}

bool SqlStore::isAnyReminderBefore(std::int64_t time) {
    return readNumber(queries::OldestReminders, use(time, "before")) > 0;
}

void SqlStore::forgetReminders(std::int64_t time, std::int64_t now, std::int64_t most) {
    std::vector<std::pair<Reminder, bool>> old;
    Reminder r;
    int kind = 0;
    int stays = 0;
    m_statements.each(
        queries::OldReminders,
        [&] {
            r.kind = static_cast<ReminderKind>(kind);
            old.emplace_back(r, stays != 0);
        },
        into(r.deptId), into(r.taskId), into(kind), into(r.due), into(r.username), into(stays), use(time, "before"),
        use(most, "most"));
    for (const auto& [reminder, isKept] : old) {
        const auto change = [this, &reminder = reminder](const char* statement, auto&&... used) {
            m_statements.run(statement, use(reminder.deptId, "dept"), use(reminder.taskId, "id"),
                             use(static_cast<int>(reminder.kind), "kind"), use(reminder.due, "due"),
                             use(reminder.username, "username"), used...);
        };
        if (isKept)
            change(queries::KeepReminder, use(now, "now"));
        else
            change(queries::DropReminder);
    }
}

void SqlStore::addMessage(const Message& m) {
    m_statements.run(
        "INSERT INTO message (dept_id, username, task_id, kind, text, created_at) VALUES (:dept, :username, :task, "
        ":kind, :text, :created)",
        use(m.deptId, "dept"), use(m.username, "username"), use(m.taskId, "task"),
        use(static_cast<int>(m.kind), "kind"), use(m.text, "text"), use(m.createdAt, "created"));
}

MessagePage SqlStore::pageMessages(const std::string& username, std::int64_t offset, std::int64_t limit) {
    MessagePage page;
    page.total = readNumber(queries::MessageCount, use(username, "username"));
    page.unread = unreadMessages(username);
    Message m;
    m.username = username;
    int kind = 0;
    int isRead = 0;
    m_statements.each(
        queries::MessagesOf,
        [&] {
            m.kind = static_cast<ReminderKind>(kind);
            m.isRead = isRead != 0;
            page.messages.push_back(m);
        },
        into(m.rid), into(m.deptId), into(kind), into(m.text), into(m.createdAt), into(isRead), into(m.taskId),
        into(m.taskName), into(m.catalogId), use(username, "username"), use(limit, "limit"), use(offset, "offset"));
    return page;
}

std::int64_t SqlStore::unreadMessages(const std::string& username) {
    return readNumber(queries::UnreadCount, use(username, "username"));
}

void SqlStore::markMessageRead(const std::string& username, std::int64_t rid) {
    m_statements.run("UPDATE message SET is_read = 1 WHERE rid = :rid AND username = :username AND is_read = 0",
                     use(rid, "rid"), use(username, "username"));
}

void SqlStore::markMessagesRead(const std::string& username) {
    m_statements.run("UPDATE message SET is_read = 1 WHERE username = :username AND is_read = 0",
                     use(username, "username"));
}

void SqlStore::removeMessagesBefore(std::int64_t time, std::int64_t most) {
    m_statements.run(queries::RemoveOldMessages, use(time, "before"), use(most, "most"));
}

void SqlStore::addMail(const Mail& m) {
    m_statements.run(
        "INSERT INTO mail (dept_id, mail_id, task_id, kind, due, username, subject, text, created_at, attempts, "
        "claimed_at, wake_at) VALUES (:dept, :id, :task, :kind, :due, :username, :subject, :text, :created, :attempts, "
        ":claimed, :wake) ON CONFLICT DO NOTHING",
        use(m.deptId, "dept"), use(m.id, "id"), use(m.taskId, "task"), use(static_cast<int>(m.kind), "kind"),
        use(m.due, "due"), use(m.username, "username"), use(m.subject, "subject"), use(m.text, "text"),
        use(m.createdAt, "created"), use(m.attempts, "attempts"), use(m.claimedAt, "claimed"), use(m.wakeAt, "wake"));
}

std::vector<Mail> SqlStore::readMails(const char* query, std::int64_t time, const char* name, std::int64_t most) {
    std::vector<Mail> found;
    Mail m;
    int kind = 0;
    m_statements.each(
        query,
        [&] {
            m.kind = static_cast<ReminderKind>(kind);
            found.push_back(m);
        },
        into(m.deptId), into(m.id), into(m.taskId), into(kind), into(m.due), into(m.username), into(m.subject),
        into(m.text), into(m.createdAt), into(m.attempts), into(m.claimedAt), into(m.wakeAt), use(time, name),
        use(most, "most"));
    return found;
}

std::vector<Mail> SqlStore::dueMails(std::int64_t now, std::int64_t slack, std::int64_t most) {
    auto found = readMails(queries::DueMails, now, "now", most);
    return found.empty() ? readMails(queries::MailsFromTheFuture, now + slack, "future", most) : found;
}

bool SqlStore::putMail(const Mail& m, std::int64_t claimedAt) {
    return m_statements.run(
               "UPDATE mail SET attempts = :attempts, claimed_at = :claimed, wake_at = :wake WHERE dept_id = :dept AND "
               "mail_id = :id AND claimed_at = :before",
               use(m.attempts, "attempts"), use(m.claimedAt, "claimed"), use(m.wakeAt, "wake"), use(m.deptId, "dept"),
               use(m.id, "id"), use(claimedAt, "before")) > 0;
}

void SqlStore::removeMail(const Mail& m) {
    m_statements.run("DELETE FROM mail WHERE dept_id = :dept AND mail_id = :id AND claimed_at = :claimed",
                     use(m.deptId, "dept"), use(m.id, "id"), use(m.claimedAt, "claimed"));
}

}  // namespace disclosure
