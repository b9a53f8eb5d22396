#pragma once

#include <cstdint>

struct sqlite3;

namespace disclosure {

/// Carries the write-ahead log over into the database after the connection's commits, a little at a time, as the engine
/// does by itself. Readers that follow each other without a gap let the log grow all the same; beyond `largest` bytes
/// the connection waits for those there are, while others read on, so that the log begins anew.
void keepLogSmall(sqlite3* connection, std::int64_t largest);

}  // namespace disclosure
