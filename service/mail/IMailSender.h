#pragma once

#include <string>

namespace disclosure {

/// Hands mails to a mail server.
class IMailSender {
public:
    enum class Outcome {
        Sent,
        Refused,      // for good: trying again is of no use
        Failed,       // this time
        Unreachable,  // and so would be every other mail now
        Untried,      // for that reason, or because it is time to end
        Dropped       // nobody needs it any more
    };

    struct Result {
        Outcome outcome;
        std::string reason;  // for the log; names no person and no secret
    };

    virtual ~IMailSender() = default;
    virtual const std::string& from() const = 0;
    virtual Result send(const std::string& to, const std::string& text) = 0;
};

}  // namespace disclosure
