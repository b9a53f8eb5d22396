#include "service/domain/Reminders.h"

#include <algorithm>
#include <map>
#include <set>
#include <spdlog/spdlog.h>
#include <vector>

#include "service/domain/Passwords.h"
#include "service/ports/Changing.h"

namespace disclosure {

namespace {

// A transaction looks at so many tasks and makes about so many reminders: a few hundredths of a second.
constexpr std::int64_t TasksAtOnce = 100;
constexpr std::int64_t RemindersAtOnce = 200;
constexpr std::int64_t RemovedAtOnce = 200;
constexpr int PiecesAtOnce = 20;  // such transactions for a department before it is the next one's turn
constexpr std::int32_t Daily = 2;
constexpr std::size_t MailIdLength = 32;  // 128 bits, which still fit into a header's line

bool isWanted(const PushConfig& config, ReminderKind kind) {
    return kind == ReminderKind::Advance ? config.notifyAdvance : config.notifyOverdue;
}

std::int32_t frequencyOf(const PushConfig& config, ReminderKind kind) {
    return kind == ReminderKind::Advance ? config.advanceFrequency : config.overdueFrequency;
}

/// The people of a task, each once, as far as it waits for them.
std::set<std::string> awaitedBy(const Task& task) {
    std::set<std::string> people;
    if (!task.discloser.empty() && task.confirmedAt == 0)
        people.insert(task.discloser);
    for (const TaskReceiver& receiver : task.receivers) {
        if (receiver.confirmedAt == 0)
            people.insert(receiver.username);
    }
    return people;
}

/// Whether the person may open the task: as a member of its department, or taking part in it from elsewhere in the
/// organisation, as a receiver only once it is published.
bool mayOpen(IStore& store, const Task& task, const std::string& username, bool isMember) {
    if (isMember)
        return true;
    return (task.published || username == task.discloser) && store.strangers({username}, task.deptId).empty();
}

std::string textOf(const Task& task, ReminderKind kind, const LocalDays& days) {
    const std::string begin = "交底任务“" + task.name + "”";
    if (kind == ReminderKind::Advance)
        return begin + "计划于" + chineseDay(days.dayOf(task.planDisclosure)) + "交底，请及时处理";
    return begin + "已于" + chineseDay(days.dayOf(task.expiry)) + "到期，尚未完成交底";
}

Mail mailOf(const Reminder& reminder, const Task& task, const std::string& text) {
    Mail mail;
    mail.deptId = reminder.deptId;
    mail.id = digestOf(reminder.deptId + '\n' + reminder.taskId + '\n' +
                       std::to_string(static_cast<int>(reminder.kind)) + '\n' + reminder.due + '\n' + reminder.username)
                  .substr(0, MailIdLength);
    mail.taskId = reminder.taskId;
    mail.kind = reminder.kind;
    mail.due = reminder.due;
    mail.username = reminder.username;
    mail.subject = "技术交底提醒：" + task.name;
    mail.text = text;
    mail.createdAt = reminder.madeAt;
    mail.claimedAt = reminder.madeAt;
    mail.wakeAt = reminder.madeAt;
    return mail;
}

/// That no reminder could be made of a task. Its piece of work is undone and taken again without it.
struct BadTask {
    std::int64_t rid;
    std::string id;
    std::string reason;
};

/// Repeats the piece of work until it is done, each time without one more task that cannot be reminded of. Anything
/// else that fails is not a task's fault and leaves all of them for the next turn.
template <class Piece>
std::int64_t withoutBadTasks(const std::string& deptId, Piece&& piece) {
    std::set<std::int64_t> bad;
    for (;;) {
        try {
            return piece(bad);
        } catch (const BadTask& task) {
            spdlog::error("reminders of task {} in department {}: {}", task.id, deptId, task.reason);
            bad.insert(task.rid);
        }
    }
}

}  // namespace

/// What one kind of reminding goes through on a day.
struct Reminders::Window {
    std::int64_t now = 0;
    PushConfig config;
    ReminderRun run;
    bool isBegun = false;    // whether the store has this run
    std::int64_t until = 0;  // the last date that is looked at
};

/// Makes the reminders of some tasks of one department within a transaction.
class Reminders::Batch {
public:
    Batch(const Reminders& rules, IStore& store, std::int64_t now, const std::set<std::int64_t>& bad)
        : m_rules(rules), m_store(store), m_now(now), m_bad(bad) {}

    std::int64_t made() const { return m_made; }

    void remind(const Task& task, ReminderKind kind, const PushConfig& config) {
        if (m_bad.contains(task.rid))
            return;
        try {
            make(task, kind, config);
        } catch (const std::exception& error) {
            if (isConflict(error))
                throw;
            throw BadTask{task.rid, task.id, logTextOf(error)};
        }
    }

private:
    struct Person {
        bool isMember = false;
        bool hasMail = false;
    };

    void make(const Task& task, ReminderKind kind, const PushConfig& config) {
        const auto due = m_rules.dueOf(task, kind, config, m_now);
        if (!due)
            return;
        Reminder reminder;
        reminder.deptId = task.deptId;
        reminder.taskId = task.id;
        reminder.kind = kind;
        reminder.due = *due;
        reminder.madeAt = m_now;
        const auto reminded = m_store.remindedPeople(task.deptId, task.id, kind, reminder.due);
        for (const std::string& username : awaitedBy(task)) {
            if (reminded.contains(username) || !reaches(task, username))
                continue;
            reminder.username = username;
            add(reminder, task);
        }
    }

    const Person& person(const std::string& username, const std::string& deptId) {
        auto known = m_people.find(username);
        if (known == m_people.end()) {
            Person person;
            person.isMember = m_store.rightsOf(username, deptId).has_value();
            if (m_rules.m_settings.mail) {
                const auto stored = m_store.person(username);
                person.hasMail = stored && !stored->mail.empty();
            }
            known = m_people.emplace(username, person).first;
        }
        return known->second;
    }

    bool reaches(const Task& task, const std::string& username) {
        return mayOpen(m_store, task, username, person(username, task.deptId).isMember);
    }

    void add(const Reminder& reminder, const Task& task) {
        const std::string text = textOf(task, reminder.kind, m_rules.m_days);
        m_store.addReminder(reminder);
        Message message;
        message.deptId = reminder.deptId;
        message.username = reminder.username;
        message.kind = reminder.kind;
        message.text = text;
        message.taskId = reminder.taskId;
        message.createdAt = m_now;
        m_store.addMessage(message);
        if (person(reminder.username, task.deptId).hasMail)
            m_store.addMail(mailOf(reminder, task, text));
        ++m_made;
    }

    const Reminders& m_rules;
    IStore& m_store;
    std::int64_t m_now;
    const std::set<std::int64_t>& m_bad;
    std::map<std::string, Person> m_people;
    std::int64_t m_made = 0;
};

Reminders::Reminders(const ReminderSettings& settings, Clock clock)
    : m_settings(settings), m_clock(std::move(clock)), m_days(settings.timeZone) {}

std::optional<std::string> Reminders::dueOf(const Task& task, ReminderKind kind, const PushConfig& config,
                                            std::int64_t now) const {
    if (!isWanted(config, kind) || task.state() == TaskStatus::Disclosed)
        return std::nullopt;
    const bool advance = kind == ReminderKind::Advance;
    const std::int64_t date = m_days.dayOf(advance ? task.planDisclosure : task.expiry);
    const std::int64_t today = m_days.dayOf(now);
    const bool due = advance ? task.planDisclosure != 0 && date - config.daysAdvance <= today && today <= date
                             : task.statusAt(now) == TaskStatus::Expired;
    if (!due)
        return std::nullopt;
    return frequencyOf(config, kind) == Daily ? "day " + isoDay(today) : "once " + isoDay(date);
}

bool Reminders::isStillDue(IStore& store, const Mail& mail) const {
    const auto task = store.task(mail.deptId, mail.taskId);
    const auto config = store.pushConfig(mail.deptId);
    return task && config && dueOf(*task, mail.kind, *config, m_clock()) == mail.due &&
           awaitedBy(*task).contains(mail.username) &&
           mayOpen(store, *task, mail.username, store.rightsOf(mail.username, mail.deptId).has_value());
}

std::optional<Reminders::Window> Reminders::windowOf(IStore& store, const std::string& deptId,
                                                     ReminderKind kind) const {
    Window window;
    window.now = m_clock();
    auto config = store.pushConfig(deptId);
    if (isEarly(window.now) || !config || !isWanted(*config, kind))
        return std::nullopt;
    window.config = std::move(*config);
    const std::int64_t today = m_days.dayOf(window.now);
    const bool advance = kind == ReminderKind::Advance;
    ReminderRun fresh;
    fresh.deptId = deptId;
    fresh.kind = kind;
    fresh.day = today;
    if (advance)
        fresh.place.time = m_days.startOf(today);
    window.until = advance ? m_days.startOf(today + window.config.daysAdvance + 1) - 1 : window.now;
    const auto known = store.reminderRun(deptId, kind);
    // What is overdue stays so: once is enough to have gone through it, whatever the day.
    const bool onAnyDay = !advance && frequencyOf(window.config, kind) != Daily;
    // A place later than now, or of a later day, was reached before the clock went back.
    window.isBegun = known && (known->day == today || (onAnyDay && known->day < today)) &&
                     (advance || known->place.time <= window.now);
    window.run = window.isBegun ? *known : fresh;
    window.run.day = today;
    return window;
}

bool Reminders::isAnyLeft(IStore& store, const std::string& deptId, ReminderKind kind) const {
    const Transaction transaction(store, IStore::Access::Read);
    const auto window = windowOf(store, deptId, kind);
    // A day without such tasks is noted too: changes are used up on it, so that another day must begin anew.
    return window &&
           (!window->isBegun || !store.undisclosedTasks(deptId, kind, window->run.place, window->until, 1).empty());
}

std::int64_t Reminders::takeNext(IStore& store, const std::string& deptId, ReminderKind kind,
                                 const std::set<std::int64_t>& bad) const {
    return changing(store, [&]() -> std::int64_t {
        auto window = windowOf(store, deptId, kind);
        if (!window)
            return 0;
        const auto places = store.undisclosedTasks(deptId, kind, window->run.place, window->until, TasksAtOnce);
        std::vector<std::int64_t> rids;
        for (const ReminderPlace& place : places)
            rids.push_back(place.rid);
        Batch batch(*this, store, window->now, bad);
        const auto tasks = store.tasksOf(deptId, rids);
        auto task = tasks.begin();
        for (const ReminderPlace& place : places) {
            if (batch.made() >= RemindersAtOnce)
                break;
            // Those that have gone with their catalog still have a place.
            if (task != tasks.end() && task->rid == place.rid)
                batch.remind(*task++, kind, window->config);
            window->run.place = place;
        }
        store.putReminderRun(window->run);
        return batch.made();
    });
}

bool Reminders::isAnyChanged(IStore& store, const std::string& deptId) const {
    const Transaction transaction(store, IStore::Access::Read);
    return !isEarly(m_clock()) && !store.changedTasks(deptId, 1).empty();
}

std::int64_t Reminders::takeChanged(IStore& store, const std::string& deptId, const std::set<std::int64_t>& bad) const {
    return changing(store, [&]() -> std::int64_t {
        const auto rids = store.changedTasks(deptId, TasksAtOnce);
        const auto config = store.pushConfig(deptId);
        const std::int64_t now = m_clock();
        if (isEarly(now))
            return 0;
        Batch batch(*this, store, now, bad);
        for (const std::int64_t rid : rids) {
            if (batch.made() >= RemindersAtOnce)
                break;
            for (const Task& task : store.tasksOf(deptId, {rid})) {
                for (const ReminderKind kind : {ReminderKind::Advance, ReminderKind::Overdue})
                    batch.remind(task, kind, config.value_or(PushConfig()));
            }
            store.forgetChangedTask(deptId, rid);
        }
        return batch.made();
    });
}

bool Reminders::takeSome(IStore& store, const std::string& deptId, const GoOn& goOn, std::int64_t& made) const {
    int pieces = 0;
    for (const ReminderKind kind : {ReminderKind::Advance, ReminderKind::Overdue}) {
        while (goOn() && isAnyLeft(store, deptId, kind)) {
            if (++pieces > PiecesAtOnce)
                return true;
            made += withoutBadTasks(deptId, [&](const auto& bad) { return takeNext(store, deptId, kind, bad); });
        }
    }
    while (goOn() && isAnyChanged(store, deptId)) {
        if (++pieces > PiecesAtOnce)
            return true;
        made += withoutBadTasks(deptId, [&](const auto& bad) { return takeChanged(store, deptId, bad); });
    }
    return false;
}

std::int64_t Reminders::run(IStore& store, const GoOn& goOn) const {
    if (isEarly(m_clock()))
        return 0;
    std::int64_t made = 0;
    auto open = store.remindingConfigs();
    // By turns, so that a department with very much to be reminded of does not keep all the others waiting.
    while (!open.empty() && goOn())
        std::erase_if(open, [&](const PushConfig& config) {
            try {
                return !takeSome(store, config.deptId, goOn, made);
            } catch (const std::exception& error) {
                spdlog::error("reminders of department {}: {}", config.deptId, logTextOf(error));
                return true;
            }
        });
    return made;
}

void Reminders::tidy(IStore& store, const GoOn& goOn) const {
    const std::int64_t now = m_clock();
    const std::int64_t before = now - m_settings.keepDays * Day;
    // Looked at first: who has nothing to do is in no other writer's way, nor minds one.
    while (store.isAnyReminderBefore(before) && goOn()) {
        changing(store, [&] {
            store.removeMessagesBefore(before, RemovedAtOnce);
            store.forgetReminders(before, now, RemovedAtOnce);
        });
    }
}

}  // namespace disclosure
