#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "service/ports/ReminderRecords.h"
#include "service/ports/TaskRecords.h"

namespace disclosure {

/// What reminding needs to know, the messages it makes, and the mails that wait to be sent.
class IReminderStore {
public:
    virtual std::optional<ReminderRun> reminderRun(const std::string& deptId, ReminderKind kind) = 0;
    virtual void putReminderRun(const ReminderRun& run) = 0;
    /// The department's undisclosed tasks after the place, as far as their planned date or deadline is not after
    /// `until`; at most so many, in order.
    virtual std::vector<ReminderPlace> undisclosedTasks(const std::string& deptId, ReminderKind kind,
                                                        const ReminderPlace& after, std::int64_t until,
                                                        std::int64_t most) = 0;
    /// The numbers of tasks that were changed since they were last forgotten here; some may be gone.
    virtual std::vector<std::int64_t> changedTasks(const std::string& deptId, std::int64_t most) = 0;
    virtual void forgetChangedTask(const std::string& deptId, std::int64_t rid) = 0;
    /// Those of the tasks that are still there.
    virtual std::vector<Task> tasksOf(const std::string& deptId, const std::vector<std::int64_t>& rids) = 0;
    /// Who has been reminded for this already.
    virtual std::set<std::string> remindedPeople(const std::string& deptId, const std::string& taskId,
                                                 ReminderKind kind, const std::string& due) = 0;
    virtual void addReminder(const Reminder& reminder) = 0;
    /// Whether there are messages, or notes of reminders, from before then.
    virtual bool isAnyReminderBefore(std::int64_t time) = 0;
    /// Looks at no more than `most` reminders made before `time` and forgets them, but keeps those that were made once
    /// and whose task is still undisclosed, as if they were made `now`.
    virtual void forgetReminders(std::int64_t time, std::int64_t now, std::int64_t most) = 0;

    virtual void addMessage(const Message& message) = 0;
    /// The person's messages, the newest first.
    virtual MessagePage pageMessages(const std::string& username, std::int64_t offset, std::int64_t limit) = 0;
    virtual std::int64_t unreadMessages(const std::string& username) = 0;
    /// Does nothing where the message is not the person's.
    virtual void markMessageRead(const std::string& username, std::int64_t rid) = 0;
    virtual void markMessagesRead(const std::string& username) = 0;
    /// At most `most`.
    virtual void removeMessagesBefore(std::int64_t time, std::int64_t most) = 0;

    /// Does nothing where that mail waits already.
    virtual void addMail(const Mail& mail) = 0;
    /// The mails that nobody has in hand, the longest waiting first. One that was taken in hand after `now` by more
    /// than `slack` counts as free, because the clock must have gone back since.
    virtual std::vector<Mail> dueMails(std::int64_t now, std::int64_t slack, std::int64_t most) = 0;
    /// Notes the attempts and the times of a mail that was last taken in hand at `claimedAt`. Returns false, and
    /// changes nothing, where somebody else has taken it since, or it is gone.
    virtual bool putMail(const Mail& mail, std::int64_t claimedAt) = 0;
    /// Does nothing where somebody else has taken it in hand since.
    virtual void removeMail(const Mail& mail) = 0;

protected:
    ~IReminderStore() = default;
};

}  // namespace disclosure
