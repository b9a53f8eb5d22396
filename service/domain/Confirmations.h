#pragma once

#include <string>
#include <utility>
#include <vector>

#include "service/domain/TaskLog.h"
#include "service/ports/IStore.h"
#include "service/ports/TaskRecords.h"

namespace disclosure {

/// What the people of a published task do with it. Every operation expects to run within one transaction of its caller,
/// who has made sure that the person may see the task; a broken rule throws `Refusal`. Each is noted in the log.
class Confirmations {
public:
    static constexpr std::int64_t UrgeEvery = 10LL * 60 * 1000;

    /// `username` is who acts.
    Confirmations(IStore& store, const std::string& username, std::int64_t now)
        : m_store(store), m_username(username), m_now(now), m_log(store, username, now) {}

    void confirmAsReceiver(const TaskKey& key);
    void confirmAsDiscloser(const TaskKey& key, const std::string& remark, std::vector<TaskAttachment> attachments);
    void urge(const TaskKey& key);

private:
    void checkFiles(const Task& task, const std::vector<TaskAttachment>& attachments);

    IStore& m_store;
    std::string m_username;
    std::int64_t m_now;
    TaskLog m_log;
};

}  // namespace disclosure
