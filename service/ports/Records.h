#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace disclosure {

/// Milliseconds since 1970-01-01 UTC; the tests put their own in.
using Clock = std::function<std::int64_t()>;

/// A department of the organisation; the organisation itself has no parent.
struct Department {
    std::string id;
    std::string name;
    std::string parentId;
};

/// A person who may log in while active.
struct Person {
    std::string username;
    std::string realname;
    std::string headUuid;
    std::string deptId;        // the home department
    std::string passwordHash;  // argon2id in its own text form
    std::string mail = {};     // the address reminders go to; may be empty
    bool active = true;
};

/// A project; `ppid` is the number that links carry.
struct Project {
    std::int32_t ppid = 0;
    std::string name;
    std::string deptId;
};

/// A catalog; the top one of a department has no parent and depth 1.
struct Catalog {
    std::string deptId;
    std::string id;
    std::string name;
    std::string parentId;
    std::int32_t sort = 0;
    std::int32_t depth = 1;
    std::int32_t taskNumber = 0;  // tasks directly in it; filled by the list only
};

/// A session of a logged-in person, known by the hash of its id only.
struct Session {
    std::string hash;
    std::string username;
    std::int64_t createdAt = 0;
    std::int64_t seenAt = 0;
};

/// The log-in attempts of one person from one address since `since`.
struct LoginAttempts {
    std::int64_t since = 0;
    std::int32_t count = 0;
};

}  // namespace disclosure
