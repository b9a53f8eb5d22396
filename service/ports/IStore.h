#pragma once

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

#include "service/ports/IAccountStore.h"
#include "service/ports/ICatalogStore.h"
#include "service/ports/IDocumentStore.h"
#include "service/ports/IFileStore.h"
#include "service/ports/IOrganisationStore.h"
#include "service/ports/IPushConfigStore.h"
#include "service/ports/IReminderStore.h"
#include "service/ports/ITaskLogStore.h"
#include "service/ports/ITaskPages.h"
#include "service/ports/ITaskStore.h"

namespace disclosure {

/// One connection to the database, used by one thread at a time. Throws std::exception when the database fails.
class IStore : public IAccountStore,
               public IOrganisationStore,
               public ICatalogStore,
               public ITaskStore,
               public ITaskPages,
               public ITaskLogStore,
               public IPushConfigStore,
               public IFileStore,
               public IDocumentStore,
               public IReminderStore {
public:
    /// A reader sees one state of the database throughout; there is one writer at a time.
    enum class Access { Read, Write };

    virtual ~IStore() = default;
    virtual void begin(Access access) = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;
    /// Whether the database answers and has the tables this program knows.
    virtual bool isCurrent() = 0;
};

/// What went wrong, for the log: a failed statement without the values it was given, which may be secrets.
std::string logTextOf(const std::exception& error);

/// Whether this is how the database says that its disk is full.
bool isDatabaseFull(const std::exception& error);

/// Another transaction was in the way for too long.
class Conflict : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Whether this is how the database says that another transaction was in the way: repeated later, it may go through.
bool isConflict(const std::exception& error);

/// A transaction that is undone unless committed. One that writes is begun by `changing`.
class Transaction {
public:
    Transaction(IStore& store, IStore::Access access) : m_store(store) { m_store.begin(access); }
    ~Transaction() {
        if (m_open)
            m_store.rollback();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Once this returns, the changes survive a crash.
    void commit() {
        m_store.commit();
        m_open = false;
    }

private:
    IStore& m_store;
    bool m_open = true;
};

/// A database: connections to it, and the numbered steps that bring its tables up to date.
class IDatabase {
public:
    virtual ~IDatabase() = default;
    virtual std::unique_ptr<IStore> connect() = 0;
    /// Brings the tables up to `version` (all steps when negative). Refuses a database newer than the program.
    /// Returns the number of steps taken.
    virtual int migrate(int version = -1) = 0;
};

}  // namespace disclosure
