#pragma once

#include <cstdint>
#include <string>

namespace disclosure {

/// Where a file belongs; the uuid is 32 hexadecimal digits.
struct FileKey {
    std::string deptId;
    std::string uuid;
};

/// An upload on its way, which holds room in its department.
struct PendingFile {
    FileKey key;
    std::string name;
    std::string extension;  // in small letters
    std::int64_t size = 0;
    std::string username;
    std::int64_t begunAt = 0;
};

/// A file as it is stored.
struct StoredFile {
    FileKey key;
    std::string name;
    std::string extension;
    std::string md5;
    std::int64_t size = 0;
    std::string username;  // who has uploaded it
    std::int64_t storedAt = 0;
};

/// A file that perhaps no task refers to.
struct LooseFile {
    static constexpr std::int64_t Held = 0;
    static constexpr std::int64_t JustReleased = 1;  // a task has given it up; the next sweep says when

    FileKey key;
    std::int64_t since = Held;
};

}  // namespace disclosure
