#include "service/domain/Accounts.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "service/ports/Changing.h"

namespace disclosure {

namespace {

// Longer ones cannot be anybody's, and would let a stranger fill the table of attempts.
constexpr std::size_t LongestUsername = 64;
// Stands in the table of attempts for all people or for all clients; nobody is called so.
constexpr auto Anybody = "";

}  // namespace

Accounts::Login Accounts::login(IStore& store, const std::string& username, const std::string& password,
                                const std::string& client) const {
    if (username.empty() || username.size() > LongestUsername || password.size() > Passwords::Longest)
        return {Outcome::Wrong, {}, {}};
    if (const std::int64_t wait = countAttempt(store, username, client); wait > 0)
        return {Outcome::Throttled, {}, {}, wait};

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
        forgetAttempt(store, username, client);
        store.removeSessionsSeenBefore(now - m_limits.idle);
        store.addSession({digestOf(id), username, now, now});
        return {Outcome::Accepted, id, *person};
    });
}

/// Counts before the password is looked at, so that attempts in parallel, at any process, are counted all the same.
/// Returns how long to wait when it is one too many, else 0.
std::int64_t Accounts::countAttempt(IStore& store, const std::string& username, const std::string& client) const {
    const std::int64_t now = m_clock();
    const std::tuple<std::string, std::string, std::int32_t> counts[] = {
        {username, client, m_limits.attempts},
        {Anybody, client, m_limits.attemptsOfClient},
        {username, Anybody, m_limits.attemptsOnPerson}};
    const auto waitFor = [&] {
        std::int64_t wait = 0;
        for (const auto& [who, from, most] : counts) {
            const LoginAttempts known = store.loginAttempts(who, from);
            if (known.count >= most)
                wait = std::max(wait, known.since + m_limits.attemptsWindow - now);
        }
        return wait;
    };
    // First without writing, so that nobody is held up by those who are refused anyway.
    if (const std::int64_t wait = waitFor(); wait > 0)
        return wait;
    return changing(store, [&] {
        store.removeLoginAttemptsBefore(now - m_limits.attemptsWindow);
        const std::int64_t wait = waitFor();
        if (wait > 0)
            return wait;
        for (const auto& [who, from, most] : counts) {
            LoginAttempts known = store.loginAttempts(who, from);
            if (known.count == 0)
                known.since = now;
            ++known.count;
            store.putLoginAttempts(who, from, known);
        }
        return wait;
    });
}

/// The right password at last: what is left of the counts is what others have done, and the client to others.
void Accounts::forgetAttempt(IStore& store, const std::string& username, const std::string& client) {
    store.removeLoginAttempts(username, client);
    for (const auto& [who, from] : {std::pair<std::string, std::string>(Anybody, client), {username, Anybody}}) {
        LoginAttempts known = store.loginAttempts(who, from);
        if (known.count <= 1) {
            store.removeLoginAttempts(who, from);
            continue;
        }
        --known.count;
        store.putLoginAttempts(who, from, known);
    }
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
