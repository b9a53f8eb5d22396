#include "service/store/WriteAheadLog.h"

#include <sqlite3.h>
#include <utility>

namespace disclosure {

namespace {

constexpr int UsualPages = 1000;
constexpr std::int64_t PageSize = 4096;

int keepPages(void* kept, sqlite3*, const char*, int pages) {
    *static_cast<int*>(kept) = pages;
    return SQLITE_OK;
}

}  // namespace

WriteAheadLog::WriteAheadLog(sqlite3* connection, std::int64_t largest) : m_connection(connection), m_largest(largest) {
    sqlite3_wal_hook(connection, keepPages, &m_pages);
}

void WriteAheadLog::carryOver() {
    const int pages = std::exchange(m_pages, 0);
    if (pages >= UsualPages)
        sqlite3_wal_checkpoint_v2(m_connection, nullptr,
                                  pages >= m_largest / PageSize ? SQLITE_CHECKPOINT_RESTART : SQLITE_CHECKPOINT_PASSIVE,
                                  nullptr, nullptr);
}

}  // namespace disclosure
