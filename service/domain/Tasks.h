#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/domain/TaskLog.h"
#include "service/ports/IStore.h"
#include "service/ports/Rights.h"
#include "service/ports/TaskRecords.h"

namespace disclosure {

/// What a list gets and loses. An element with the id of a stored one takes its place, others are added at the end.
template <class Element>
struct ListChange {
    std::vector<Element> save;
    std::vector<std::string> remove;
};

/// A change of a task: what is absent stays as it is.
struct TaskChange {
    std::optional<std::string> catalogId;
    std::optional<std::string> name;
    std::optional<std::string> discloser;
    std::optional<std::int64_t> constructionStart;
    std::optional<std::int64_t> constructionEnd;
    std::optional<std::int64_t> planDisclosure;
    std::optional<std::int64_t> actualDisclosure;
    std::optional<std::int64_t> expiry;
    std::optional<bool> published;
    std::optional<std::string> remark;
    ListChange<TaskReceiver> receivers;
    ListChange<TaskViewport> viewports;
    ListChange<TaskNode> nodes;
    ListChange<TaskDoc> docs;
};

/// The rules of what is written into tasks. Every operation expects to run within one transaction of its caller, who
/// has made sure that the person may see the task and holds the right; a broken rule throws `Refusal`. Each change is
/// noted in the log.
class Tasks {
public:
    static constexpr std::size_t MostDocs = 10;
    static constexpr std::size_t MostLinks = 10;  // viewports and nodes together
    static constexpr std::size_t MostReceivers = 500;

    /// `username` is who acts.
    Tasks(IStore& store, const std::string& username, std::int64_t now)
        : m_store(store), m_username(username), m_log(store, username, now) {}

    /// Adds the task; an empty id is given one. Saying the same again changes nothing and is no error.
    void save(const std::string& deptId, std::string id, TaskContent content);
    /// `version` is the last change that the client has seen, if it says so. A change that changes nothing is no error,
    /// whatever the version. Takes the right to edit for what is edited, and that to delete for another catalog.
    void update(const TaskKey& key, const TaskChange& change, std::optional<std::int64_t> version,
                const Rights& rights);
    void remove(const std::vector<TaskKey>& keys);

private:
    void check(const std::string& deptId, TaskContent& content, const TaskContent& before);
    void checkPeople(const std::string& deptId, const TaskContent& content, const TaskContent& before);
    void checkDocs(const std::string& deptId, const TaskContent& content, const TaskContent& before);
    /// The link is to a content of a document that is there.
    void checkFiled(const std::string& deptId, const TaskDoc& doc);

    IStore& m_store;
    std::string m_username;
    TaskLog m_log;
};

}  // namespace disclosure
