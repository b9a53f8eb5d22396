#include "service/domain/Tasks.h"

#include <algorithm>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_io.hpp>
#include <set>

#include "service/domain/Refusal.h"
#include "service/domain/TaskChecks.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

std::string newId() {
    return boost::uuids::to_string(boost::uuids::random_generator()());
}

template <class Element>
void giveIds(std::vector<Element>& list) {
    for (Element& element : list) {
        if (element.id.empty())
            element.id = newId();
    }
}

/// A replaced receiver keeps the confirmation, unless it becomes somebody else.
void replace(TaskReceiver& old, const TaskReceiver& element) {
    if (old.username != element.username)
        old = element;
}

template <class Element>
void replace(Element& old, const Element& element) {
    old = element;
}

template <class Element>
void apply(std::vector<Element>& list, ListChange<Element> change) {
    std::erase_if(list, [&](const Element& element) {
        return std::find(change.remove.begin(), change.remove.end(), element.id) != change.remove.end();
    });
    giveIds(change.save);
    for (const Element& element : change.save) {
        const auto old =
            std::find_if(list.begin(), list.end(), [&](const Element& known) { return known.id == element.id; });
        if (old == list.end())
            list.push_back(element);
        else
            replace(*old, element);
    }
}

template <class Value>
void apply(Value& value, const std::optional<Value>& change) {
    if (change)
        value = *change;
}

TaskContent changed(TaskContent content, const TaskChange& change) {
    if (change.catalogId && !change.catalogId->empty())
        content.catalogId = *change.catalogId;
    apply(content.name, change.name);
    apply(content.discloser, change.discloser);
    apply(content.constructionStart, change.constructionStart);
    apply(content.constructionEnd, change.constructionEnd);
    apply(content.planDisclosure, change.planDisclosure);
    apply(content.actualDisclosure, change.actualDisclosure);
    apply(content.expiry, change.expiry);
    apply(content.published, change.published);
    apply(content.remark, change.remark);
    apply(content.receivers, change.receivers);
    apply(content.viewports, change.viewports);
    apply(content.nodes, change.nodes);
    apply(content.docs, change.docs);
    return content;
}

TaskContent movedTo(TaskContent content, const std::string& catalogId) {
    content.catalogId = catalogId;
    return content;
}

}  // namespace

void Tasks::save(const std::string& deptId, std::string id, TaskContent content) {
    check(deptId, content, {});
    if (id.empty())
        id = newId();
    else if (!isId(id))
        throw Refusal(reasons::BadTaskId);
    const std::optional<Task> known = m_store.task(deptId, id);
    if (known && static_cast<const TaskContent&>(*known) == content)
        return;
    // Whoever saw no answer tries again, and may have gone on typing meanwhile.
    if (known && (known->published || known->updatedBy != m_username))
        throw Refusal(reasons::TaskIdTaken);
    Task task = known.value_or(Task{});
    checkPeople(deptId, content, task);
    checkDocs(deptId, content, task);
    static_cast<TaskContent&>(task) = std::move(content);
    task.deptId = deptId;
    task.id = id;
    giveIds(task.receivers);
    giveIds(task.viewports);
    giveIds(task.nodes);
    giveIds(task.docs);
    touch(task);
    if (known) {
        m_store.putTask(task);
        note(task, LogEntry::Changed);
    } else {
        m_store.addTask(task);
        note(task, LogEntry::Created);
    }
    if (task.published)
        note(task, LogEntry::Published);
}

void Tasks::update(const TaskKey& key, const TaskChange& change, std::optional<std::int64_t> version,
                   const Rights& rights) {
    Task task = stored(key);
    const TaskContent before = task;
    TaskContent content = changed(before, change);
    const bool moves = content.catalogId != before.catalogId;
    const bool edits = content != movedTo(before, content.catalogId);
    if (edits && !rights.contains(Right::EditTasks))
        throw Refusal(reasons::NoRightTasks);
    if (moves && !rights.contains(Right::DeleteTasks))
        throw Refusal(reasons::NoRightMove);
    // Either right will do: what saw no answer is repeated, and changes nothing any more.
    if (!rights.contains(Right::EditTasks) && !rights.contains(Right::DeleteTasks))
        throw Refusal(reasons::NoRightTasks);
    check(task.deptId, content, before);
    if (content == before)
        return;
    if (version && *version != task.updatedAt)
        throw Refusal(reasons::TaskChanged);
    const bool onlyMoved = content == movedTo(before, content.catalogId);
    if (before.published && !onlyMoved)
        throw Refusal(reasons::TaskPublished);
    checkPeople(task.deptId, content, before);
    checkDocs(task.deptId, content, before);
    static_cast<TaskContent&>(task) = std::move(content);
    touch(task);
    m_store.putTask(task);
    if (!onlyMoved && !task.published)
        note(task, LogEntry::Changed);
    if (!before.published && task.published)
        note(task, LogEntry::Published);
    if (onlyMoved)
        note(task, LogEntry::Moved);
}

void Tasks::remove(const std::vector<TaskKey>& keys) {
    for (const TaskKey& key : keys) {
        note(stored(key), LogEntry::Deleted);
        m_store.removeTask(key);
    }
}

void Tasks::noteRemovalOf(const std::string& deptId, const std::string& catalogId) {
    LogEntry entry;
    entry.id = newId();
    entry.deptId = deptId;
    entry.username = m_username;
    entry.time = m_now;
    entry.kind = LogEntry::Deleted;
    m_store.addLogForSubtree(entry, catalogId);
}

/// Whoever sees the task may read its files, so people hand on only what they have uploaded themselves, or what it has
/// already.
void Tasks::checkFiles(const Task& task, const std::vector<TaskAttachment>& attachments) {
    const auto check = [&](const std::string& uuid, const std::string& md5, std::int32_t size) {
        if (std::any_of(task.docs.begin(), task.docs.end(),
                        [&](const TaskDoc& doc) { return doc.uuid == uuid && doc.md5 == md5 && doc.size == size; }))
            return;
        const auto file = m_store.file({task.deptId, uuid});
        if (!file || file->username != m_username || file->md5 != md5 || file->size != size)
            throw Refusal(reasons::DocNotStored);
    };
    for (const TaskAttachment& attachment : attachments) {
        check(attachment.uuid, attachment.md5, attachment.size);
        if (!attachment.thumbnailUuid.empty())
            check(attachment.thumbnailUuid, attachment.thumbnailMd5, attachment.thumbnailSize);
    }
}

void Tasks::confirmAsReceiver(const TaskKey& key) {
    Task task = stored(key);
    const auto receiver = std::find_if(task.receivers.begin(), task.receivers.end(),
                                       [this](const TaskReceiver& r) { return r.username == m_username; });
    if (receiver == task.receivers.end())
        throw Refusal(reasons::NotReceiver);
    if (!task.published)
        throw Refusal(reasons::NotPublished);
    if (receiver->confirmedAt != 0)
        return;
    receiver->confirmedAt = m_now;
    touch(task);
    m_store.putTask(task);
    note(task, LogEntry::ReceiverConfirmed);
}

void Tasks::confirmAsDiscloser(const TaskKey& key, const std::string& remark, std::vector<TaskAttachment> attachments) {
    Task task = stored(key);
    if (task.discloser != m_username)
        throw Refusal(reasons::NotDiscloser);
    if (!task.published)
        throw Refusal(reasons::NotPublished);
    if (task.confirmedAt != 0)
        return;
    checkRemark(remark);
    checkAttachments(attachments);
    checkFiles(task, attachments);
    giveIds(attachments);
    task.confirmedAt = m_now;
    task.confirmRemark = remark;
    task.attachments = std::move(attachments);
    if (task.actualDisclosure == 0)
        task.actualDisclosure = m_now;
    touch(task);
    m_store.putTask(task);
    note(task, LogEntry::DiscloserConfirmed);
}

void Tasks::urge(const TaskKey& key) {
    Task task = stored(key);
    if (task.discloser != m_username)
        throw Refusal(reasons::NotDiscloser);
    if (!task.published)
        throw Refusal(reasons::NotPublished);
    if (task.state() == TaskStatus::Disclosed)
        throw Refusal(reasons::AlreadyDisclosed);
    if (task.urgedAt != 0 && m_now < task.urgedAt + UrgeEvery)
        throw Refusal(reasons::UrgedLately);
    task.urgedAt = m_now;
    m_store.putTask(task);
    note(task, LogEntry::Urged);
}

void Tasks::addLog(const TaskKey& key, LogEntry entry) {
    if (entry.kind < LogEntry::ClientKinds)
        throw Refusal(reasons::BadLogKind);
    for (const std::string* text : {&entry.sourceId, &entry.sourceUuid, &entry.sourceMd5, &entry.sourceExtension})
        checkField(*text, LongestKey);
    checkField(entry.sourceName, LongestFileName);
    entry.deptId = key.deptId;
    entry.taskId = key.id;
    entry.username = m_username;
    entry.time = m_now;
    if (entry.id.empty()) {
        entry.id = newId();
    } else if (!isId(entry.id)) {
        throw Refusal(reasons::BadElementId);
    } else {
        for (const LogEntry& known : m_store.logOf(key.deptId, key.id)) {
            if (known.id != entry.id)
                continue;
            if (known.username == m_username && known.kind == entry.kind && known.sourceId == entry.sourceId)
                return;
            throw Refusal(reasons::LogIdTaken);
        }
    }
    m_store.addLog(entry);
}

void Tasks::savePushConfig(PushConfig config) {
    checkReminders(config);
    if (config.id.empty())
        config.id = newId();
    else if (!isId(config.id))
        throw Refusal(reasons::BadElementId);
    if (const auto known = m_store.pushConfig(config.deptId)) {
        if (*known == config)
            return;
        throw Refusal(reasons::PushConfigExists);
    }
    m_store.putPushConfig(config);
}

void Tasks::updatePushConfig(const PushConfig& stored, PushConfig config) {
    checkReminders(config);
    config.id = stored.id;
    config.deptId = stored.deptId;
    m_store.putPushConfig(config);
}

Task Tasks::stored(const TaskKey& key) {
    auto task = m_store.task(key.deptId, key.id);
    if (!task)
        throw Refusal(reasons::NoTask);
    return std::move(*task);
}

void Tasks::check(const std::string& deptId, TaskContent& content, const TaskContent& before) {
    checkContent(content);
    if (content.catalogId != before.catalogId && !m_store.catalog(deptId, content.catalogId))
        throw Refusal(reasons::NoCatalog);
}

/// Only who is new: people who have left since may stay in a task.
void Tasks::checkPeople(const std::string& deptId, const TaskContent& content, const TaskContent& before) {
    if (content.discloser != before.discloser && !content.discloser.empty() &&
        !m_store.isOfOrganisation(content.discloser, deptId))
        throw Refusal(reasons::UnknownDiscloser);
    std::set<std::string> known;
    for (const TaskReceiver& receiver : before.receivers)
        known.insert(receiver.username);
    for (const TaskReceiver& receiver : content.receivers) {
        if (!known.contains(receiver.username) && !m_store.isOfOrganisation(receiver.username, deptId))
            throw Refusal(reasons::UnknownReceiver, receiver.username);
    }
}

/// Only what is new, like the people: what a task has stays, whatever has become of it. The file cannot be swept away
/// in between, since both are writing transactions.
void Tasks::checkDocs(const std::string& deptId, const TaskContent& content, const TaskContent& before) {
    const auto isSame = [](const TaskDoc& a, const TaskDoc& b) {
        return a.sourceType == b.sourceType && a.uuid == b.uuid && a.md5 == b.md5 && a.size == b.size;
    };
    for (const TaskDoc& doc : content.docs) {
        const bool known =
            std::any_of(before.docs.begin(), before.docs.end(), [&](const TaskDoc& old) { return isSame(doc, old); });
        if (doc.sourceType != TaskDoc::Uploaded || known)
            continue;
        const auto file = m_store.file({deptId, doc.uuid});
        if (!file || file->md5 != doc.md5 || file->size != doc.size)
            throw Refusal(reasons::DocNotStored);
    }
}

/// The time of the last change is the task's version, so it never stands still.
void Tasks::touch(Task& task) const {
    task.updatedAt = std::max(m_now, task.updatedAt + 1);
    task.updatedBy = m_username;
}

void Tasks::note(const Task& task, LogEntry::Kind kind) {
    LogEntry entry;
    entry.id = newId();
    entry.deptId = task.deptId;
    entry.taskId = task.id;
    entry.username = m_username;
    entry.time = m_now;
    entry.kind = kind;
    entry.sourceName = task.name;
    m_store.addLog(entry);
}

}  // namespace disclosure
