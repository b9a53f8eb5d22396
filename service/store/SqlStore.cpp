#include "service/store/SqlStore.h"

#include <chrono>
#include <spdlog/spdlog.h>

#include "service/store/Migrations.h"

namespace disclosure {

SqlStore::SqlStore(std::unique_ptr<soci::session> sql, std::string beginWrite, std::timed_mutex& writers,
                   std::function<void()> afterCommit)
    : m_sql(std::move(sql)),
      m_statements(*m_sql),
      m_beginWrite(std::move(beginWrite)),
      m_afterCommit(std::move(afterCommit)),
      m_writing(writers, std::defer_lock) {}

SqlStore::~SqlStore() = default;

void SqlStore::begin(Access access) {
    if (access == Access::Read) {
        m_statements.run("BEGIN");
        return;
    }
    // As long as the database itself lets a writer wait for one of another process.
    if (!m_writing.try_lock_for(std::chrono::seconds(1)))
        throw Conflict("another change takes long");
    try {
        m_statements.run(m_beginWrite);
    } catch (...) {
        m_writing.unlock();
        throw;
    }
}

void SqlStore::commit() {
    m_statements.run("COMMIT");
    if (!m_writing.owns_lock())
        return;
    m_writing.unlock();
    m_afterCommit();
}

void SqlStore::rollback() noexcept {
    try {
        m_statements.run("ROLLBACK");
    } catch (const std::exception& e) {
        // The engine has already undone it by itself, as it does when the disk is full.
        spdlog::warn("rollback: {}", logTextOf(e));
    }
    if (m_writing.owns_lock())
        m_writing.unlock();
}

bool SqlStore::isCurrent() {
    int version = 0;
    soci::indicator found = soci::i_null;
    m_statements.one("SELECT MAX(version) FROM schema_version", soci::into(version, found));
    return found == soci::i_ok && version == static_cast<int>(migrations().size());
}

}  // namespace disclosure
