#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/Records.h"

namespace disclosure {

/// People, their sessions and their log-in attempts.
class IAccountStore {
public:
    virtual std::optional<Person> person(const std::string& username) = 0;
    virtual std::vector<Person> people() = 0;
    /// Adds the person or replaces what is known of them.
    virtual void putPerson(const Person& person) = 0;

    virtual std::optional<Session> session(const std::string& hash) = 0;
    virtual void addSession(const Session& session) = 0;
    virtual void touchSession(const std::string& hash, std::int64_t seenAt) = 0;
    virtual void removeSession(const std::string& hash) = 0;
    virtual void removeSessionsOf(const std::string& username) = 0;
    virtual void removeSessionsSeenBefore(std::int64_t time) = 0;

    virtual LoginAttempts loginAttempts(const std::string& username, const std::string& address) = 0;
    virtual void putLoginAttempts(const std::string& username, const std::string& address,
                                  const LoginAttempts& attempts) = 0;
    virtual void removeLoginAttempts(const std::string& username, const std::string& address) = 0;
    virtual void removeLoginAttemptsBefore(std::int64_t time) = 0;

protected:
    ~IAccountStore() = default;
};

}  // namespace disclosure
