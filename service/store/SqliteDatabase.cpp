#include "service/store/SqliteDatabase.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <soci/sqlite3/soci-sqlite3.h>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>

#include "service/store/Migrations.h"
#include "service/store/NameIndex.h"
#include "service/store/SqlStore.h"
#include "service/store/WriteAheadLog.h"

namespace disclosure {

namespace {

constexpr auto BeginWrite = "BEGIN IMMEDIATE";
/// For one try; `changing` makes a few.
constexpr std::chrono::milliseconds Patience{1'000};
// SQLITE_BUSY and SQLITE_FULL; SOCI keeps SQLite's header to itself.
constexpr int Busy = 5;
constexpr int Full = 13;
constexpr std::int64_t LargestLog = 64LL * 1024 * 1024;

/// The code without what is added to it in particular cases.
int codeOf(const soci::sqlite3_soci_error& error) {
    return error.result() & 0xff;
}

bool hasCode(const std::exception& error, int code) {
    const auto* failure = dynamic_cast<const soci::sqlite3_soci_error*>(&error);
    return failure && codeOf(*failure) == code;
}

/// The folder first, so that there is no moment at which others can read the file.
void makeFile(const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::absolute(path).parent_path();
    if (!fs::exists(folder)) {
        fs::create_directories(folder.parent_path());
        if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
            throw std::system_error(errno, std::generic_category(), folder.string());
    }
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        throw std::system_error(errno, std::generic_category(), path);
    ::close(file);
}

/// A new file turns to the write-ahead log only while nobody else holds it, and SQLite does not wait for that moment by
/// itself: processes that start together on a new file would refuse each other.
void useWriteAheadLog(soci::session& sql) {
    const auto until = std::chrono::steady_clock::now() + 10 * Patience;
    for (;;) {
        try {
            sql << "PRAGMA journal_mode = WAL";
            return;
        } catch (const soci::sqlite3_soci_error& error) {
            if (codeOf(error) != Busy || std::chrono::steady_clock::now() > until)
                throw;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

std::unique_ptr<soci::session> open(const std::string& path) {
    auto sql = std::make_unique<soci::session>(soci::sqlite3, "dbname=\"" + path + "\"");
    *sql << "PRAGMA busy_timeout = " << Patience.count();
    useWriteAheadLog(*sql);
    *sql << "PRAGMA synchronous = FULL";
    // What a long transaction has made of the log is cut off once it has been carried over.
    *sql << "PRAGMA journal_size_limit = " << LargestLog;
    *sql << "PRAGMA foreign_keys = ON";
    // Kibibytes of a connection: enough for the inner pages of every index of a million tasks.
    *sql << "PRAGMA cache_size = -16384";
    // What a statement needs to undo itself, which most never do.
    *sql << "PRAGMA temp_store = MEMORY";
    // SOCI declares SQLite within a namespace of its own.
    auto* backend = static_cast<soci::sqlite3_session_backend*>(sql->get_backend());
    installNameGrams(reinterpret_cast<::sqlite3*>(backend->conn_));
    return sql;
}

}  // namespace

std::string logTextOf(const std::exception& error) {
    const auto* failure = dynamic_cast<const soci::soci_error*>(&error);
    return failure ? failure->get_error_message() : error.what();
}

bool isDatabaseFull(const std::exception& error) {
    return hasCode(error, Full);
}

bool isConflict(const std::exception& error) {
    return hasCode(error, Busy) || dynamic_cast<const Conflict*>(&error);
}

SqliteDatabase::SqliteDatabase(std::string path) : m_path(std::move(path)) {
    if (m_path.find('"') != std::string::npos)
        throw std::invalid_argument("the database's path may not contain a quotation mark");
    if (m_path != ":memory:")
        makeFile(m_path);
}

std::unique_ptr<IStore> SqliteDatabase::connect() {
    auto sql = open(m_path);
    if (m_path == ":memory:")
        migrateSqlite(*sql, -1);
    auto* backend = static_cast<soci::sqlite3_session_backend*>(sql->get_backend());
    const auto log = std::make_shared<WriteAheadLog>(reinterpret_cast<::sqlite3*>(backend->conn_), LargestLog);
    return std::make_unique<SqlStore>(std::move(sql), BeginWrite, m_writers, [log] { log->carryOver(); });
}

int SqliteDatabase::migrate(int version) {
    // Another process may be taking a long step.
    const auto sql = open(m_path);
    *sql << "PRAGMA busy_timeout = 60000";
    return migrateSqlite(*sql, version);
}

namespace {

/// 0 where nothing has been made yet.
int versionOf(soci::session& sql) {
    int tables = 0;
    sql << "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = 'schema_version'", soci::into(tables);
    int version = 0;
    if (tables > 0)
        sql << "SELECT COALESCE(MAX(version), 0) FROM schema_version", soci::into(version);
    return version;
}

}  // namespace

int migrateSqlite(soci::session& sql, int version) {
    const auto steps = migrations();
    const int wanted = version < 0 ? static_cast<int>(steps.size()) : version;
    // Who has nothing to do need not wait for whoever writes.
    if (versionOf(sql) == wanted)
        return 0;
    int taken = 0;
    for (;; ++taken) {
        // Each step looks again under the write lock: another process may be taking the same steps.
        sql << BeginWrite;
        try {
            sql << "CREATE TABLE IF NOT EXISTS schema_version (version INTEGER PRIMARY KEY)";
            const int current = versionOf(sql);
            if (current > static_cast<int>(steps.size()))
                throw std::runtime_error("the database was written by a newer version of this program");
            if (current >= wanted) {
                sql << "COMMIT";
                return taken;
            }
            for (const char* statement : steps[static_cast<std::size_t>(current)])
                sql << statement;
            const int next = current + 1;
            sql << "INSERT INTO schema_version (version) VALUES (:version)", soci::use(next, "version");
            sql << "ANALYZE";
            sql << "COMMIT";
        } catch (...) {
            sql << "ROLLBACK";
            throw;
        }
    }
}

}  // namespace disclosure
