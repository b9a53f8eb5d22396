#pragma once

#include <cstdint>
#include <memory>

#include "service/commands/Settings.h"
#include "service/files/FileFolder.h"
#include "service/ports/IStore.h"

/// What most subcommands begin with. Throws with a reason for the user when it cannot be had.
namespace disclosure::commands {

std::unique_ptr<IDatabase> databaseOf(const Settings& settings);
/// Its tables are up to date.
std::unique_ptr<IDatabase> migratedDatabaseOf(const Settings& settings);
/// The folder of the files' contents, which is the database's; makes it.
FileFolder filesOf(const Settings& settings, IStore& store);
/// Milliseconds since 1970-01-01 UTC.
std::int64_t now();

}  // namespace disclosure::commands
