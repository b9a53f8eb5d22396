#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace disclosure {

/// Why somebody is reminded: the planned date comes near, or the deadline is over.
enum class ReminderKind : std::int32_t { Advance = 1, Overdue = 2 };

/// A place among a department's undisclosed tasks in the order of a kind's date, then of their numbers.
struct ReminderPlace {
    std::int64_t time = 0;
    std::int64_t rid = 0;
};

/// How far a department's tasks have been gone through on a local day. Other settings begin anew.
struct ReminderRun {
    std::string deptId;
    ReminderKind kind = ReminderKind::Advance;
    std::int64_t day = 0;
    ReminderPlace place;
};

/// That a person has been reminded of a task. `due` says for what: "once " and the date's day, or "day " and the day
/// itself; no two are equal.
struct Reminder {
    std::string deptId;
    std::string taskId;
    ReminderKind kind = ReminderKind::Advance;
    std::string due;
    std::string username;
    std::int64_t madeAt = 0;
};

/// A message to a person. The task's id, name and catalog are those of now, and empty where the person cannot see it.
struct Message {
    std::int64_t rid = 0;  // its number in the store
    std::string deptId;
    std::string username;
    ReminderKind kind = ReminderKind::Advance;
    std::string text;
    std::string taskId;
    std::int64_t createdAt = 0;
    bool isRead = false;
    std::string taskName = {};  // filled when read, as is the next
    std::string catalogId = {};
};

/// Some of a person's messages, and how many there are in all.
struct MessagePage {
    std::vector<Message> messages;
    std::int64_t total = 0;
    std::int64_t unread = 0;
};

/// A mail that is to be sent. `id` follows from what the reminder is for, so that a mail sent twice can be recognised.
struct Mail {
    std::string deptId;
    std::string id;
    std::string taskId;
    ReminderKind kind = ReminderKind::Advance;
    std::string due;  // as of the reminder
    std::string username;
    std::string subject;
    std::string text;
    std::int64_t createdAt = 0;
    std::int32_t attempts = 0;
    std::int64_t claimedAt = 0;  // when it was last taken in hand
    std::int64_t wakeAt = 0;     // nobody else takes it before
};

}  // namespace disclosure
