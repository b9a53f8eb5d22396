#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace disclosure {

inline constexpr std::int64_t Day = 24LL * 60 * 60 * 1000;
inline constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();

/// What a client is told of a task's progress. A task is stored as one of the first three; see `Task::deadline`.
enum class TaskStatus : std::int32_t { Waiting = 1, Disclosed = 2, Disclosing = 3, Expired = 4 };

/// A person who must receive the disclosure.
struct TaskReceiver {
    std::string id;
    std::string username;
    std::int64_t confirmedAt = 0;  // 0: not yet
    std::string realname = {};     // filled when read, as is the next
    std::string headUuid = {};

    bool operator==(const TaskReceiver& other) const { return id == other.id && username == other.username; }
};

struct TaskViewport {
    std::string id;
    std::int32_t ppid = 0;
    std::string viewportId;

    bool operator==(const TaskViewport&) const = default;
};

struct TaskNode {
    std::string id;
    std::int32_t ppid = 0;
    std::string nodeId;

    bool operator==(const TaskNode&) const = default;
};

struct TaskDoc {
    // Of `sourceType`: a content of the document `refDocId`, or a stored file; either is known by `uuid`.
    static constexpr std::int32_t Filed = 0;
    static constexpr std::int32_t Uploaded = 1;

    std::string id;
    std::int32_t ppid = 0;
    std::string name;
    std::string uuid;
    std::string md5;
    std::int32_t size = 0;
    std::string extension;
    std::int32_t sourceType = 0;
    std::string refDocId;

    bool operator==(const TaskDoc&) const = default;
};

/// A file that the discloser adds to the confirmation.
struct TaskAttachment {
    std::string id;
    std::string name;
    std::string uuid;
    std::string md5;
    std::int32_t size = 0;
    std::string extension;
    std::string thumbnailUuid;
    std::string thumbnailMd5;
    std::int32_t thumbnailSize = 0;

    bool operator==(const TaskAttachment&) const = default;
};

/// What people write into a task; times in milliseconds, 0 where there is none.
struct TaskContent {
    std::string catalogId;
    std::string name;
    std::string discloser;
    std::int64_t constructionStart = 0;
    std::int64_t constructionEnd = 0;
    std::int64_t planDisclosure = 0;
    std::int64_t actualDisclosure = 0;
    std::int64_t expiry = 0;
    bool published = false;
    std::string remark;
    std::vector<TaskReceiver> receivers;
    std::vector<TaskViewport> viewports;
    std::vector<TaskNode> nodes;
    std::vector<TaskDoc> docs;

    bool operator==(const TaskContent&) const = default;
};

/// A task as it is stored.
struct Task : TaskContent {
    std::int64_t rid = 0;  // its number in the store; 0 before it is stored
    std::string deptId;
    std::string id;
    std::string updatedBy;
    std::int64_t updatedAt = 0;
    std::int64_t confirmedAt = 0;  // by the discloser; 0: not yet
    std::string confirmRemark;
    std::int64_t urgedAt = 0;
    std::vector<TaskAttachment> attachments;

    std::string deptName;  // these are filled when read
    std::string discloserRealname;
    std::string discloserHeadUuid;
    std::string updatedByName;

    /// The progress without regard to the day.
    TaskStatus state() const;
    /// From when on the task counts as expired. A client sends the beginning of the last day that is in time.
    std::int64_t deadline() const;
    TaskStatus statusAt(std::int64_t now) const { return deadline() <= now ? TaskStatus::Expired : state(); }
};

/// Where a task is.
struct TaskKey {
    std::int64_t rid = 0;
    std::string deptId;
    std::string id;
};

/// Which tasks of a department are wanted, and which part of them in which order.
struct TaskFilter {
    enum class Date { None, Actual, Plan, ConstructionStart, ConstructionEnd };
    enum class Order { Updated, Name, Discloser, ConstructionStart, ConstructionEnd, Plan, Actual };

    std::string deptId;
    std::string catalogId;    // with everything below it; empty for the whole department
    std::int32_t status = 0;  // of TaskStatus; 0 for all
    std::int64_t now = 0;
    std::string keyword;  // a part of the name; empty for all
    Date date = Date::None;
    std::int64_t from = 1;  // of the range that the date lies in, both ends included
    std::int64_t to = Never;
    Order order = Order::Updated;
    bool descending = true;
    std::int64_t offset = 0;
    std::int64_t limit = 0;
};

/// Which of the tasks that are a person's own are wanted; the latest added come first.
struct OwnTaskFilter {
    enum class Role { Any, Discloser, Receiver };

    std::string username;
    std::string deptId;  // empty for every department
    std::int64_t now = 0;
    std::string keyword;
    Role role = Role::Any;
    std::string discloser;  // empty for all
    std::int64_t from = 0;  // of the planned disclosure; 0 includes the tasks without one
    std::int64_t to = Never;
    std::int64_t offset = 0;
    std::int64_t limit = 0;
};

/// One of a person's own tasks.
struct OwnTask {
    std::string id;
    std::string name;
    std::int64_t planDisclosure = 0;
    std::int64_t expiry = 0;
    std::int64_t actualDisclosure = 0;
    std::int32_t status = 0;
};

struct OwnTaskPage {
    std::vector<OwnTask> tasks;
    std::int64_t total = 0;
};

/// Some tasks, and how many there are in all.
struct TaskPage {
    std::vector<Task> tasks;
    std::int64_t total = 0;
};

/// What was done to a task. The numbers below `ClientKinds` are the service's own.
struct LogEntry {
    enum Kind : std::int32_t {
        Created = 1,
        Changed = 2,
        Published = 3,
        Moved = 4,
        Deleted = 5,
        ReceiverConfirmed = 6,
        DiscloserConfirmed = 7,
        Urged = 8,
        ClientKinds = 100
    };

    std::string id;
    std::string deptId;
    std::string taskId;
    std::string username;
    std::int64_t time = 0;
    std::int32_t kind = Changed;
    std::string sourceId;
    std::string sourceName;
    std::string sourceUuid;
    std::string sourceMd5;
    std::int32_t sourceSize = 0;
    std::string sourceExtension;
    std::string realname;  // filled when read, as is the next
    std::string headUuid;
};

/// Which entries of a task's log are wanted.
struct LogFilter {
    std::string deptId;
    std::string taskId;
    std::int32_t kind = 0;  // 0 for all
    std::string username;   // empty for everybody's
    std::int64_t offset = 0;
    std::int64_t limit = 0;
};

/// When a department's people are reminded; a frequency is 1 for once and 2 for once a day.
struct PushConfig {
    std::string id;
    std::string deptId;
    bool notifyAdvance = false;
    std::int32_t daysAdvance = 0;
    std::int32_t advanceFrequency = 0;
    bool notifyOverdue = false;
    std::int32_t overdueFrequency = 0;

    bool operator==(const PushConfig&) const = default;
};

}  // namespace disclosure
