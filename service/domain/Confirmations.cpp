#include "service/domain/Confirmations.h"

#include <algorithm>

#include "service/domain/NewId.h"
#include "service/domain/Refusal.h"
#include "service/domain/TaskChecks.h"

namespace disclosure {

/// Whoever sees the task may read its files, so people hand on only what they have uploaded themselves, or what it has
/// already.
void Confirmations::checkFiles(const Task& task, const std::vector<TaskAttachment>& attachments) {
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

void Confirmations::confirmAsReceiver(const TaskKey& key) {
    const Task before = storedTask(m_store, key);
    Task task = before;
    const auto receiver = std::find_if(task.receivers.begin(), task.receivers.end(),
                                       [this](const TaskReceiver& r) { return r.username == m_username; });
    if (receiver == task.receivers.end())
        throw Refusal(reasons::NotReceiver);
    if (!task.published)
        throw Refusal(reasons::NotPublished);
    if (receiver->confirmedAt != 0)
        return;
    receiver->confirmedAt = m_now;
    m_log.touch(task);
    m_store.putTask(task, before);
    m_log.note(task, LogEntry::ReceiverConfirmed);
}

void Confirmations::confirmAsDiscloser(const TaskKey& key, const std::string& remark,
                                       std::vector<TaskAttachment> attachments) {
    const Task before = storedTask(m_store, key);
    Task task = before;
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
    m_log.touch(task);
    m_store.putTask(task, before);
    m_log.note(task, LogEntry::DiscloserConfirmed);
}

void Confirmations::urge(const TaskKey& key) {
    const Task before = storedTask(m_store, key);
    Task task = before;
    if (task.discloser != m_username)
        throw Refusal(reasons::NotDiscloser);
    if (!task.published)
        throw Refusal(reasons::NotPublished);
    if (task.state() == TaskStatus::Disclosed)
        throw Refusal(reasons::AlreadyDisclosed);
    if (task.urgedAt != 0 && m_now < task.urgedAt + UrgeEvery)
        throw Refusal(reasons::UrgedLately);
    task.urgedAt = m_now;
    m_store.putTask(task, before);
    m_log.note(task, LogEntry::Urged);
}

}  // namespace disclosure
