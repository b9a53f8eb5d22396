#include "service/domain/Accounts.h"

#include <algorithm>

#include "service/ports/Changing.h"

namespace disclosure {

namespace {

// Longer ones cannot be anybody's, and would let a stranger fill the table of attempts.
constexpr std::size_t LongestUsername = 64;

}  // namespace

Accounts::Login Accounts::login(IStore& store, const std::string& username, const std::string& password,
                                const std::string& address) const {
    if (username.size() > LongestUsername || password.size() > Passwords::Longest)
        return {Outcome::Wrong, {}, {}};
    if (!countAttempt(store, username, address))
        return {Outcome::Throttled, {}, {}};

    const auto person = store.person(username);
    if (!m_passwords.matches(password, person && person->active ? person->passwordHash : std::string()))
        return {Outcome::Wrong, {}, {}};

    const std::int64_t now = m_clock();
    const std::string id = newSecret();
    return changing(store, [&]() -> Login {
        // Who was deactivated or got another password meanwhile has lost every session; no other must begin.
        const auto still = store.person(username);
        if (!still || !still->active || still->passwordHash != person->passwordHash)
            return {Outcome::Wrong, {}, {}};
        store.removeLoginAttempts(username, address);
        store.removeSessionsSeenBefore(now - m_limits.idle);
        store.addSession({digestOf(id), username, now, now});
        return {Outcome::Accepted, id, *person};
    });
}

/// Counts before the password is looked at, so that attempts in parallel, at any process, are counted all the same.
bool Accounts::countAttempt(IStore& store, const std::string& username, const std::string& address) const {
    const std::int64_t now = m_clock();
    return changing(store, [&] {
        store.removeLoginAttemptsBefore(now - m_limits.attemptsWindow);
        LoginAttempts attempts = store.loginAttempts(username, address);
        if (attempts.count >= m_limits.attempts)
            return false;
        if (attempts.count == 0)
            attempts.since = now;
        ++attempts.count;
        store.putLoginAttempts(username, address, attempts);
        return true;
    });
}

std::optional<std::string> Accounts::personOf(IStore& store, const std::string& sessionId) const {
    const std::string hash = digestOf(sessionId);
    const std::int64_t onItsWay = m_uses.lastOf(hash);  // asked first: meanwhile it may arrive in the store
    const auto session = store.session(hash);
    const std::int64_t now = m_clock();
    if (!session || now - session->createdAt >= m_limits.absolute)
        return std::nullopt;
    const std::int64_t seenAt = std::max(session->seenAt, onItsWay);
    if (now - seenAt >= m_limits.idle)
        return std::nullopt;
    if (now - seenAt >= m_limits.seenEvery)
        m_uses.note(hash, now);
    return session->username;
}

void Accounts::logout(IStore& store, const std::string& sessionId) const {
    changing(store, [&] { store.removeSession(digestOf(sessionId)); });
}

}  // namespace disclosure
