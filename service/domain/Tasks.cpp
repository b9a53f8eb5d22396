#include "service/domain/Tasks.h"

#include <algorithm>
#include <map>
#include <set>

#include "service/domain/NewId.h"
#include "service/domain/Refusal.h"
#include "service/domain/TaskChecks.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

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
    m_log.touch(task);
    if (known) {
        m_store.putTask(task, *known);
        m_log.note(task, LogEntry::Changed);
    } else {
        m_store.addTask(task);
        m_log.note(task, LogEntry::Created);
    }
    if (task.published)
        m_log.note(task, LogEntry::Published);
}

void Tasks::update(const TaskKey& key, const TaskChange& change, std::optional<std::int64_t> version,
                   const Rights& rights) {
    const Task old = storedTask(m_store, key);
    const TaskContent& before = old;
    Task task = old;
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
    m_log.touch(task);
    m_store.putTask(task, old);
    if (!onlyMoved && !task.published)
        m_log.note(task, LogEntry::Changed);
    if (!before.published && task.published)
        m_log.note(task, LogEntry::Published);
    if (onlyMoved)
        m_log.note(task, LogEntry::Moved);
}

void Tasks::remove(const std::vector<TaskKey>& keys) {
    std::map<std::string, std::vector<TaskKey>> byDept;
    for (const TaskKey& key : keys)
        byDept[key.deptId].push_back(key);
    for (const auto& [deptId, tasks] : byDept)
        m_store.removeTasks(tasks, m_log.entryOf(deptId, LogEntry::Deleted));
}

void Tasks::check(const std::string& deptId, TaskContent& content, const TaskContent& before) {
    checkContent(content);
    if (content.catalogId != before.catalogId && !m_store.catalog(deptId, content.catalogId))
        throw Refusal(reasons::NoCatalog);
}

/// Only who is new: people who have left since may stay in a task.
void Tasks::checkPeople(const std::string& deptId, const TaskContent& content, const TaskContent& before) {
    std::vector<std::string> people;
    const bool isGiven = content.discloser != before.discloser && !content.discloser.empty();
    if (isGiven)
        people.push_back(content.discloser);
    std::set<std::string> known;
    for (const TaskReceiver& receiver : before.receivers)
        known.insert(receiver.username);
    for (const TaskReceiver& receiver : content.receivers) {
        if (!known.contains(receiver.username))
            people.push_back(receiver.username);
    }
    const auto strangers = m_store.strangers(people, deptId);
    if (strangers.empty())
        return;
    if (isGiven && strangers.front() == content.discloser)
        throw Refusal(reasons::UnknownDiscloser);
    throw Refusal(reasons::UnknownReceiver, strangers.front());
}

/// Only what is new, like the people: what a task has stays, whatever has become of the file or the document. Neither
/// can go in between, since all that writes is one after the other.
void Tasks::checkDocs(const std::string& deptId, const TaskContent& content, const TaskContent& before) {
    const auto isSame = [](const TaskDoc& a, const TaskDoc& b) {
        return a.sourceType == b.sourceType && a.refDocId == b.refDocId && a.uuid == b.uuid && a.md5 == b.md5 &&
               a.size == b.size;
    };
    for (const TaskDoc& doc : content.docs) {
        const bool known =
            std::any_of(before.docs.begin(), before.docs.end(), [&](const TaskDoc& old) { return isSame(doc, old); });
        if (known)
            continue;
        if (doc.sourceType == TaskDoc::Uploaded) {
            const auto file = m_store.file({deptId, doc.uuid});
            if (!file || file->md5 != doc.md5 || file->size != doc.size)
                throw Refusal(reasons::DocNotStored);
        } else if (doc.sourceType == TaskDoc::Filed) {
            checkFiled(deptId, doc);
        } else {
            throw Refusal(reasons::DocUnknown, doc.name);
        }
    }
}

void Tasks::checkFiled(const std::string& deptId, const TaskDoc& doc) {
    const auto found = m_store.documents(deptId, {doc.refDocId});
    if (found.empty())
        throw Refusal(reasons::DocUnknown, doc.name);
    if (found.front().isDeleted)
        throw Refusal(reasons::DocGone, doc.name);
    const auto contents = m_store.contentsOf(found.front());
    const auto means = [&](const DocumentContent& content) {
        return content.uuid == doc.uuid && content.md5 == doc.md5 && content.size == doc.size;
    };
    if (std::none_of(contents.begin(), contents.end(), means))
        throw Refusal(reasons::DocUnknown, doc.name);
}

}  // namespace disclosure
