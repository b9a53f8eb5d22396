#include "service/store/WriteAheadLog.h"

#include <sqlite3.h>

namespace disclosure {

namespace {

constexpr int UsualPages = 1000;
constexpr std::int64_t PageSize = 4096;

/// `pages` are those in the log. What fails here is tried again after the next commit.
int carryOver(void* largest, sqlite3* connection, const char* database, int pages) {
    if (pages >= UsualPages) {
        const bool isLarge = pages >= static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(largest)) / PageSize;
        sqlite3_wal_checkpoint_v2(connection, database, isLarge ? SQLITE_CHECKPOINT_RESTART : SQLITE_CHECKPOINT_PASSIVE,
                                  nullptr, nullptr);
    }
    return SQLITE_OK;
}

}  // namespace

void keepLogSmall(sqlite3* connection, std::int64_t largest) {
    sqlite3_wal_hook(connection, carryOver, reinterpret_cast<void*>(static_cast<std::intptr_t>(largest)));
}

}  // namespace disclosure
