#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>

#include "service/domain/LocalDays.h"
#include "service/ports/GoOn.h"
#include "service/ports/IStore.h"
#include "service/ports/Records.h"

namespace disclosure {

/// What the settings say about reminding.
struct ReminderSettings {
    std::string timeZone = "Asia/Shanghai";  // an IANA name; its days are the days of all reminders
    int hour = 8;                            // local; nobody is reminded before it
    int keepDays = 180;                      // messages older than that are removed
    bool mail = false;                       // whether mails go out as well
};

/// Makes the reminders that the departments' settings ask for, each once, whoever runs it and however often. Works in
/// transactions of its own, each short, so that people's changes are not held up; what a run has passed is noted with
/// what it made, so that several processes share the work and a killed one loses nothing.
class Reminders {
public:
    /// Throws std::invalid_argument when there is no such time zone.
    Reminders(const ReminderSettings& settings, Clock clock);

    /// Makes all that is due now. Returns the number of reminders made.
    std::int64_t run(IStore& store, const GoOn& goOn) const;
    /// Whether the mail's reminder is still due, and for the same date or day. Needs a transaction.
    bool isStillDue(IStore& store, const Mail& mail) const;
    /// Removes old messages, and what has been noted to make none twice.
    void tidy(IStore& store, const GoOn& goOn) const;

private:
    struct Window;
    class Batch;

    /// What the task is due for now, as a reminder notes it; nothing when it is not.
    std::optional<std::string> dueOf(const Task& task, ReminderKind kind, const PushConfig& config,
                                     std::int64_t now) const;
    bool isEarly(std::int64_t now) const { return m_days.hourOf(now) < m_settings.hour; }
    /// What is left for the department now; nothing where it does not want this kind, or not yet.
    std::optional<Window> windowOf(IStore& store, const std::string& deptId, ReminderKind kind) const;
    bool isAnyLeft(IStore& store, const std::string& deptId, ReminderKind kind) const;
    /// Does not remind of the tasks with these numbers.
    std::int64_t takeNext(IStore& store, const std::string& deptId, ReminderKind kind,
                          const std::set<std::int64_t>& bad) const;
    bool isAnyChanged(IStore& store, const std::string& deptId) const;
    std::int64_t takeChanged(IStore& store, const std::string& deptId, const std::set<std::int64_t>& bad) const;
    /// Some of what is due for the department. Returns whether there is more.
    bool takeSome(IStore& store, const std::string& deptId, const GoOn& goOn, std::int64_t& made) const;

    ReminderSettings m_settings;
    Clock m_clock;
    LocalDays m_days;
};

}  // namespace disclosure
