#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/domain/Accounts.h"
#include "service/http/Border.h"
#include "service/http/Messages.h"
#include "service/http/Route.h"
#include "service/http/UploadEnd.h"

namespace disclosure {

/// From a whole request to its answer: the border, the session, the scope and rights, the handler, and the one place
/// that turns a failure into an answer. Keeps nothing between requests but the uses of sessions on their way to the
/// store, so any number of threads may use it.
class Service {
public:
    struct Settings {
        std::vector<std::string> hosts;  // names besides the loopback's under which it may be addressed
        AccountLimits limits;
        Clock clock;
        Passwords::Cost cost = Passwords::Cost::Interactive;
        std::int64_t quota = 51'200LL * 1024 * 1024;  // bytes of a department's files
        bool secureCookie = false;                    // clients come over TLS only
    };

    /// `files` must outlive the service.
    Service(const Settings& settings, const FileFolder& files);

    /// What answering will take, as far as the header says; Work::None asks for no store.
    struct Asked {
        Work work;
        bool session;  // is asked for
    };
    Asked askedBy(const Request& header) const;
    /// The answer to a request for which a session is asked, where the header says already that it is refused.
    std::optional<Response> refusalOf(const Request& header, IStore& store) const noexcept;
    /// `store` may be null for Work::None. `client` is what counts as one client. An upload's request comes here
    /// without its body.
    Reply answer(const Request& request, const std::string& client, IStore* store) const noexcept;
    const UploadEnd& uploadEnd() const { return m_uploadEnd; }
    /// The uses of sessions that requests have noted.
    SessionUses& sessionUses() const { return m_accounts.uses(); }

private:
    Reply answerOrThrow(const Request& request, const std::string& client, IStore* store) const;

    Border m_border;
    Clock m_clock;
    Passwords m_passwords;
    Accounts m_accounts;
    std::int64_t m_quota;
    bool m_secureCookie;
    const FileFolder& m_files;
    UploadEnd m_uploadEnd;
};

}  // namespace disclosure
