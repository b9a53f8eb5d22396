#include "service/commands/Open.h"

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "service/files/Claim.h"
#include "service/store/SqliteDatabase.h"

namespace disclosure::commands {

namespace {

namespace fs = std::filesystem;

std::string databaseFileOf(const Settings& settings) {
    constexpr std::string_view Scheme = "sqlite:";
    const std::string_view url = settings.database;
    if (!url.starts_with(Scheme) || url.size() == Scheme.size())
        throw std::invalid_argument("the database must be given as sqlite:PATH");
    const std::string file(url.substr(Scheme.size()));
    if (file == ":memory:")
        throw std::invalid_argument("a database in memory would be another one for each connection; name a file");
    return file;
}

/// The database's name with another ending; "files" where such a folder from before is the database's.
fs::path usualFolder(const fs::path& database, IStore& store) {
    fs::path named = fs::absolute(database);
    named.replace_extension(".files");
    const fs::path former = named.parent_path() / "files";
    const auto isOwn = [&](const fs::path& path) {
        return FileFolder::isAt(path) && isFolderOf(store, FileFolder(path));
    };
    return !isOwn(named) && isOwn(former) ? former : named;
}

}  // namespace

std::unique_ptr<IDatabase> databaseOf(const Settings& settings) {
    return std::make_unique<SqliteDatabase>(databaseFileOf(settings));
}

FileFolder filesOf(const Settings& settings, IStore& store) {
    const fs::path configured = settings.filesFolder;
    FileFolder files(configured.empty() ? usualFolder(databaseFileOf(settings), store) : configured);
    claim(store, files);
    return files;
}

std::unique_ptr<IDatabase> migratedDatabaseOf(const Settings& settings) {
    auto database = databaseOf(settings);
    database->migrate();
    return database;
}

std::int64_t now() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

}  // namespace disclosure::commands
