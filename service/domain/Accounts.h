#pragma once

#include <optional>
#include <string>

#include "service/domain/Passwords.h"
#include "service/domain/SessionUses.h"
#include "service/ports/IStore.h"
#include "service/ports/Records.h"

namespace disclosure {

/// How long sessions last and how many wrong passwords are put up with; times in milliseconds.
struct AccountLimits {
    std::int64_t idle = 30LL * 60 * 1000;
    std::int64_t absolute = 12LL * 60 * 60 * 1000;
    std::int64_t seenEvery = 60LL * 1000;
    std::int32_t attempts = 10;
    std::int64_t attemptsWindow = 5LL * 60 * 1000;
};

/// Logging in and out and telling who a session belongs to. Opens its own transactions, since hashing a password takes
/// too long to be done within one.
class Accounts {
public:
    enum class Outcome { Accepted, Wrong, Throttled };
    struct Login {
        Outcome outcome;
        std::string sessionId;  // when accepted
        Person person;          // when accepted
    };

    Accounts(const AccountLimits& limits, Clock clock, const Passwords& passwords)
        : m_limits(limits), m_clock(std::move(clock)), m_passwords(passwords) {}

    Login login(IStore& store, const std::string& username, const std::string& password,
                const std::string& address) const;
    /// The login name behind a live session id. Only reads the store: the use is noted, once in a while, in `uses`.
    std::optional<std::string> personOf(IStore& store, const std::string& sessionId) const;
    void logout(IStore& store, const std::string& sessionId) const;
    /// What is still to be written.
    SessionUses& uses() const { return m_uses; }

private:
    bool countAttempt(IStore& store, const std::string& username, const std::string& address) const;

    AccountLimits m_limits;
    Clock m_clock;
    const Passwords& m_passwords;
    mutable SessionUses m_uses;
};

}  // namespace disclosure
