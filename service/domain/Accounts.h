#pragma once

#include <optional>
#include <string>

#include "service/domain/Passwords.h"
#include "service/domain/SessionUses.h"
#include "service/ports/IStore.h"
#include "service/ports/Records.h"

namespace disclosure {

/// How long sessions last and how many wrong passwords are put up with in a window; times in milliseconds. Each of
/// several clients can keep a person out for themselves only: it takes more of them than `attempts` go into
/// `attemptsOnPerson` to keep the person out elsewhere.
struct AccountLimits {
    std::int64_t idle = 30LL * 60 * 1000;
    std::int64_t absolute = 12LL * 60 * 60 * 1000;
    std::int64_t seenEvery = 60LL * 1000;
    std::int32_t attempts = 10;           // of one client at one person
    std::int32_t attemptsOfClient = 100;  // at anybody
    std::int32_t attemptsOnPerson = 100;  // of anybody
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
        std::int64_t wait = 0;  // when throttled: until it may be tried again
    };

    Accounts(const AccountLimits& limits, Clock clock, const Passwords& passwords)
        : m_limits(limits), m_clock(std::move(clock)), m_passwords(passwords) {}

    /// `client` is what counts as one client, such as an address.
    Login login(IStore& store, const std::string& username, const std::string& password,
                const std::string& client) const;
    /// The login name behind a live session id. Only reads the store: the use is noted, once in a while, in `uses`.
    std::optional<std::string> personOf(IStore& store, const std::string& sessionId) const;
    void logout(IStore& store, const std::string& sessionId) const;
    /// What is still to be written.
    SessionUses& uses() const { return m_uses; }

private:
    std::int64_t countAttempt(IStore& store, const std::string& username, const std::string& client) const;
    static void forgetAttempt(IStore& store, const std::string& username, const std::string& client);

    AccountLimits m_limits;
    Clock m_clock;
    const Passwords& m_passwords;
    mutable SessionUses m_uses;
};

}  // namespace disclosure
