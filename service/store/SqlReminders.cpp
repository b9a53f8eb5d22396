#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

std::optional<ReminderRun> SqlStore::reminderRun(const std::string& deptId, ReminderKind kind) {
    ReminderRun run;
    run.deptId = deptId;
    run.kind = kind;
    const int number = static_cast<int>(kind);
    long long day = 0;
    long long time = 0;
    long long rid = 0;
    soci::statement row = (m_sql->prepare << queries::ReminderRunOf, into(day), into(time), into(rid),
                           use(deptId, "dept"), use(number, "kind"));
    if (!row.execute(true))
        return std::nullopt;
    run.day = day;
    run.place = {time, rid};
    return run;
}

void SqlStore::putReminderRun(const ReminderRun& run) {
    const int kind = static_cast<int>(run.kind);
    const long long day = run.day;
    const long long time = run.place.time;
    const long long rid = run.place.rid;
    this->run(
        "INSERT INTO reminder_run (dept_id, kind, day, place_time, place_rid) VALUES (:dept, :kind, :day, :time, :rid) "
        "ON CONFLICT (dept_id, kind) DO UPDATE SET day = excluded.day, place_time = excluded.place_time, place_rid = "
        "excluded.place_rid",
        use(run.deptId, "dept"), use(kind, "kind"), use(day, "day"), use(time, "time"), use(rid, "rid"));
}

std::vector<ReminderPlace> SqlStore::undisclosedTasks(const std::string& deptId, ReminderKind kind,
                                                      const ReminderPlace& after, std::int64_t until,
                                                      std::int64_t most) {
    std::vector<ReminderPlace> found;
    const long long fromTime = after.time;
    const long long fromRid = after.rid;
    const long long last = until;
    const long long limit = most;
    long long time = 0;
    long long rid = 0;
    const char* query = kind == ReminderKind::Advance ? queries::UndisclosedByPlan : queries::UndisclosedByDeadline;
    soci::statement rows = (m_sql->prepare << query, into(time), into(rid), use(deptId, "dept"), use(fromTime, "time"),
                            use(fromRid, "rid"), use(last, "until"), use(limit, "most"));
    rows.execute();
    while (rows.fetch())
        found.push_back({time, rid});
    return found;
}

std::vector<std::int64_t> SqlStore::changedTasks(const std::string& deptId, std::int64_t most) {
    std::vector<std::int64_t> found;
    const long long limit = most;
    long long rid = 0;
    soci::statement rows =
        (m_sql->prepare << queries::ChangedTasks, into(rid), use(deptId, "dept"), use(limit, "most"));
    rows.execute();
    while (rows.fetch())
        found.push_back(rid);
    return found;
}

void SqlStore::forgetChangedTask(const std::string& deptId, std::int64_t rid) {
    const long long number = rid;
    run("DELETE FROM reminder_changed WHERE dept_id = :dept AND task_rid = :rid", use(deptId, "dept"),
        use(number, "rid"));
}

std::vector<Task> SqlStore::tasksOf(const std::string& deptId, const std::vector<std::int64_t>& rids) {
    auto tasks = readTasks(deptId, {rids.begin(), rids.end()});
    std::erase_if(tasks, [](const Task& task) { return task.rid == 0; });
    return tasks;
}

std::set<std::string> SqlStore::remindedPeople(const std::string& deptId, const std::string& taskId, ReminderKind kind,
                                               const std::string& due) {
    std::set<std::string> found;
    const int number = static_cast<int>(kind);
    std::string username;
    soci::statement rows = (m_sql->prepare << queries::RemindedPeople, into(username), use(deptId, "dept"),
                            use(taskId, "id"), use(number, "kind"), use(due, "due"));
    rows.execute();
    while (rows.fetch())
        found.insert(username);
    return found;
}

void SqlStore::addReminder(const Reminder& r) {
    const int kind = static_cast<int>(r.kind);
    const long long madeAt = r.madeAt;
    run("INSERT INTO reminder (dept_id, task_id, kind, due, username, made_at) VALUES (:dept, :id, :kind, :due, "
        ":username, :made)",
        use(r.deptId, "dept"), use(r.taskId, "id"), use(kind, "kind"), use(r.due, "due"), use(r.username, "username"),
        use(madeAt, "made"));
}

std::int64_t SqlStore::forgetReminders(std::int64_t time, std::int64_t now, std::int64_t most) {
    std::vector<std::pair<Reminder, bool>> old;
    {
        const long long before = time;
        const long long limit = most;
        Reminder r;
        int kind = 0;
        int stays = 0;
        soci::statement rows = (m_sql->prepare << queries::OldReminders, into(r.deptId), into(r.taskId), into(kind),
                                into(r.due), into(r.username), into(stays), use(before, "before"), use(limit, "most"));
        rows.execute();
        while (rows.fetch()) {
            r.kind = static_cast<ReminderKind>(kind);
            old.emplace_back(r, stays != 0);
        }
    }
    const long long today = now;
    for (const auto& [r, stays] : old) {
        const int kind = static_cast<int>(r.kind);
        const std::string what = stays ? "UPDATE reminder SET made_at = :now" : "DELETE FROM reminder";
        soci::statement change(*m_sql);
        if (stays)
            change.exchange(use(today, "now"));
        change.exchange(use(r.deptId, "dept"));
        change.exchange(use(r.taskId, "id"));
        change.exchange(use(kind, "kind"));
        change.exchange(use(r.due, "due"));
        change.exchange(use(r.username, "username"));
        change.alloc();
        change.prepare(what +
                       " WHERE dept_id = :dept AND task_id = :id AND kind = :kind AND due = :due AND username = "
                       ":username");
        change.define_and_bind();
        change.execute(true);
    }
    return std::ssize(old);
}

void SqlStore::addMessage(const Message& m) {
    const int kind = static_cast<int>(m.kind);
    const long long createdAt = m.createdAt;
    run("INSERT INTO message (dept_id, username, task_id, kind, text, created_at) VALUES (:dept, :username, :task, "
        ":kind, :text, :created)",
        use(m.deptId, "dept"), use(m.username, "username"), use(m.taskId, "task"), use(kind, "kind"),
        use(m.text, "text"), use(createdAt, "created"));
}

MessagePage SqlStore::pageMessages(const std::string& username, std::int64_t offset, std::int64_t limit) {
    MessagePage page;
    long long total = 0;
    soci::statement count = (m_sql->prepare << queries::MessageCount, into(total), use(username, "username"));
    count.execute(true);
    page.total = total;
    page.unread = unreadMessages(username);

    const long long first = offset;
    const long long most = limit;
    Message m;
    m.username = username;
    long long rid = 0;
    long long createdAt = 0;
    int kind = 0;
    int isRead = 0;
    soci::statement rows = (m_sql->prepare << queries::MessagesOf, into(rid), into(m.deptId), into(kind), into(m.text),
                            into(createdAt), into(isRead), into(m.taskId), into(m.taskName), into(m.catalogId),
                            use(username, "username"), use(most, "limit"), use(first, "offset"));
    rows.execute();
    while (rows.fetch()) {
        m.rid = rid;
        m.kind = static_cast<ReminderKind>(kind);
        m.createdAt = createdAt;
        m.isRead = isRead != 0;
        page.messages.push_back(m);
    }
    return page;
}

std::int64_t SqlStore::unreadMessages(const std::string& username) {
    long long unread = 0;
    soci::statement count = (m_sql->prepare << queries::UnreadCount, into(unread), use(username, "username"));
    count.execute(true);
    return unread;
}

void SqlStore::markMessageRead(const std::string& username, std::int64_t rid) {
    const long long number = rid;
    run("UPDATE message SET is_read = 1 WHERE rid = :rid AND username = :username AND is_read = 0", use(number, "rid"),
        use(username, "username"));
}

void SqlStore::markMessagesRead(const std::string& username) {
    run("UPDATE message SET is_read = 1 WHERE username = :username AND is_read = 0", use(username, "username"));
}

std::int64_t SqlStore::removeMessagesBefore(std::int64_t time, std::int64_t most) {
    std::vector<long long> old;
    {
        const long long before = time;
        const long long limit = most;
        long long rid = 0;
        soci::statement rows =
            (m_sql->prepare << queries::OldMessages, into(rid), use(before, "before"), use(limit, "most"));
        rows.execute();
        while (rows.fetch())
            old.push_back(rid);
    }
    for (const long long& rid : old)
        run("DELETE FROM message WHERE rid = :rid", use(rid, "rid"));
    return std::ssize(old);
}

void SqlStore::addMail(const Mail& m) {
    const long long createdAt = m.createdAt;
    const long long claimedAt = m.claimedAt;
    const long long wakeAt = m.wakeAt;
    const int kind = static_cast<int>(m.kind);
    run("INSERT INTO mail (dept_id, mail_id, task_id, kind, due, username, subject, text, created_at, attempts, "
        "claimed_at, wake_at) VALUES (:dept, :id, :task, :kind, :due, :username, :subject, :text, :created, :attempts, "
        ":claimed, :wake) ON CONFLICT DO NOTHING",
        use(m.deptId, "dept"), use(m.id, "id"), use(m.taskId, "task"), use(kind, "kind"), use(m.due, "due"),
        use(m.username, "username"), use(m.subject, "subject"), use(m.text, "text"), use(createdAt, "created"),
        use(m.attempts, "attempts"), use(claimedAt, "claimed"), use(wakeAt, "wake"));
}

std::vector<Mail> SqlStore::readMails(const char* query, std::int64_t time, const char* name, std::int64_t most) {
    std::vector<Mail> found;
    const long long border = time;
    const long long limit = most;
    Mail m;
    int kind = 0;
    long long createdAt = 0;
    long long claimedAt = 0;
    long long wakeAt = 0;
    soci::statement rows = (m_sql->prepare << query, into(m.deptId), into(m.id), into(m.taskId), into(kind),
                            into(m.due), into(m.username), into(m.subject), into(m.text), into(createdAt),
                            into(m.attempts), into(claimedAt), into(wakeAt), use(border, name), use(limit, "most"));
    rows.execute();
    while (rows.fetch()) {
        m.kind = static_cast<ReminderKind>(kind);
        m.createdAt = createdAt;
        m.claimedAt = claimedAt;
        m.wakeAt = wakeAt;
        found.push_back(m);
    }
    return found;
}

std::vector<Mail> SqlStore::dueMails(std::int64_t now, std::int64_t slack, std::int64_t most) {
    auto found = readMails(queries::DueMails, now, "now", most);
    return found.empty() ? readMails(queries::MailsFromTheFuture, now + slack, "future", most) : found;
}

bool SqlStore::putMail(const Mail& m, std::int64_t claimedAt) {
    const long long before = claimedAt;
    const long long claimed = m.claimedAt;
    const long long wakeAt = m.wakeAt;
    soci::statement change =
        (m_sql->prepare << "UPDATE mail SET attempts = :attempts, claimed_at = :claimed, wake_at = :wake WHERE dept_id "
                           "= :dept AND mail_id = :id AND claimed_at = :before",
         use(m.attempts, "attempts"), use(claimed, "claimed"), use(wakeAt, "wake"), use(m.deptId, "dept"),
         use(m.id, "id"), use(before, "before"));
    change.execute(true);
    return change.get_affected_rows() > 0;
}

void SqlStore::removeMail(const Mail& m) {
    const long long claimedAt = m.claimedAt;
    run("DELETE FROM mail WHERE dept_id = :dept AND mail_id = :id AND claimed_at = :claimed", use(m.deptId, "dept"),
        use(m.id, "id"), use(claimedAt, "claimed"));
}

}  // namespace disclosure
