#pragma once

#include <map>
#include <memory>
#include <rapidjson/schema.h>
#include <string>
#include <vector>

#include "service/domain/Accounts.h"
#include "service/http/Messages.h"
#include "service/http/Route.h"

namespace disclosure {

/// From a whole request to its answer: the checks at the border, the session, the rights, the handler, and the one
/// place that turns a failure into an answer. Keeps nothing between requests but the uses of sessions on their way to
/// the store, so any number of threads may use it.
class Service {
public:
    struct Settings {
        std::vector<std::string> hosts;  // names besides the loopback's under which it may be addressed
        AccountLimits limits;
        Clock clock;
        Passwords::Cost cost = Passwords::Cost::Interactive;
        std::int64_t quota = 51'200LL * 1024 * 1024;  // bytes of a department's files
    };

    /// `files` must outlive the service.
    Service(const Settings& settings, const FileFolder& files);

    /// What answering will take; Work::None asks for no store.
    Work workFor(const Request& request) const;
    /// The uses of sessions that requests have noted.
    SessionUses& sessionUses() const { return m_accounts.uses(); }
    /// `store` may be null for Work::None. `address` is the client's.
    /// An upload's request comes here without its body.
    Reply answer(const Request& request, const std::string& address, IStore* store) const noexcept;
    /// An upload has come whole and is on the disk.
    Response keep(const PendingFile& pending, const std::string& md5, IStore& store) const noexcept;
    /// An upload does not come.
    void giveUp(const PendingFile& pending, IStore& store) const noexcept;

private:
    Reply answerOrThrow(const Request& request, const std::string& address, IStore* store) const;
    const Route& routeFor(const Request& request, const Target& target) const;
    rapidjson::Document bodyFor(const Route& route, const Request& request) const;
    void removeUnknown(const std::string& uuid, IStore& store) const noexcept;

    std::vector<std::string> m_hosts;
    Clock m_clock;
    Passwords m_passwords;
    Accounts m_accounts;
    std::int64_t m_quota;
    const FileFolder& m_files;
    std::map<const Route*, std::unique_ptr<rapidjson::SchemaDocument>> m_schemas;
};

}  // namespace disclosure
