#pragma once

#include <mutex>
#include <soci/soci.h>
#include <string>

#include "service/ports/IStore.h"

namespace disclosure {

/// A database in one SQLite file, or in memory when the path is ":memory:" (then each connection is a database).
class SqliteDatabase final : public IDatabase {
public:
    /// Makes the file, readable for its owner only, and its folder when they are missing.
    explicit SqliteDatabase(std::string path);

    std::unique_ptr<IStore> connect() override;
    int migrate(int version = -1) override;

private:
    std::string m_path;
    std::timed_mutex m_writers;
};

/// Brings the tables behind one open SQLite session up to `version`; see `IDatabase::migrate`.
int migrateSqlite(soci::session& sql, int version);

}  // namespace disclosure
