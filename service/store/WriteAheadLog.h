#pragma once

#include <cstdint>

struct sqlite3;

namespace disclosure {

/// The write-ahead log as one connection's commits leave it. The engine would carry it over into the database within
/// the commit, while the other writers of the process wait.
class WriteAheadLog {
public:
    /// Must be gone, or the connection closed, before the other is used again.
    WriteAheadLog(sqlite3* connection, std::int64_t largest);
    WriteAheadLog(const WriteAheadLog&) = delete;
    WriteAheadLog& operator=(const WriteAheadLog&) = delete;

    /// To follow a commit. Carries the log over where it has grown. Readers that follow each other without a gap let it
    /// grow all the same; beyond `largest` bytes those there are are waited for, while others read on, so that it
    /// begins anew. What fails is tried again after the next commit.
    void carryOver();

private:
    sqlite3* m_connection;
    std::int64_t m_largest;
    int m_pages = 0;
};

}  // namespace disclosure
