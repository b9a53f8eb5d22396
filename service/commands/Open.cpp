#include "service/commands/Open.h"

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "service/store/SqliteDatabase.h"

namespace disclosure::commands {

namespace {

std::string databaseFileOf(const Settings& settings) {
    constexpr std::string_view Scheme = "sqlite:";
    const std::string_view url = settings.database;
    if (!url.starts_with(Scheme) || url.size() == Scheme.size())
        throw std::invalid_argument("the database must be given as sqlite:PATH");
    return std::string(url.substr(Scheme.size()));
}

}  // namespace

std::unique_ptr<IDatabase> databaseOf(const Settings& settings) {
    return std::make_unique<SqliteDatabase>(databaseFileOf(settings));
}

FileFolder filesOf(const Settings& settings) {
    if (!settings.filesFolder.empty())
        return FileFolder(settings.filesFolder);
    const std::string database = databaseFileOf(settings);
    if (database == ":memory:")
        throw std::invalid_argument("a database in memory needs a folder for the files");
    return FileFolder(std::filesystem::absolute(database).parent_path() / "files");
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
