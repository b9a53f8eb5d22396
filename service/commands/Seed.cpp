#include <iostream>
#include <stdexcept>

#include "service/commands/Commands.h"
#include "service/commands/Open.h"
#include "service/commands/Organisation.h"
#include "service/domain/Demo.h"
#include "service/domain/DemoDocuments.h"
#include "service/domain/DemoTasks.h"
#include "service/text/Text.h"

namespace disclosure::commands {

int migrate(const Settings& settings) {
    std::cout << databaseOf(settings)->migrate() << " steps taken\n";
    return 0;
}

int seedDemonstration(const Settings& settings) {
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    const FileFolder files = filesOf(settings, *store);
    const auto keep = [&files](const std::string& uuid, const std::string& content) {
        const auto writer = files.create(uuid);
        writer->write(content);
        return writer->finish();
    };
    if (seedDemo(*store, Passwords()))
        seedDemoTasks(*store, now(), seedDemoDocuments(*store, now(), keep), keep);
    return 0;
}

int seedLoadDepartment(const Settings& settings, const LoadSettings& load) {
    if (!isId(load.deptId))
        throw std::invalid_argument("a department's id has 1 to 64 of the characters A-Z a-z 0-9 _ -");
    const auto database = migratedDatabaseOf(settings);
    seedLoad(*database->connect(), Passwords(), load);
    return 0;
}

int seedOrganisation(const Settings& settings, const std::string& file) {
    const auto database = migratedDatabaseOf(settings);
    takeOverOrganisation(*database->connect(), file);
    return 0;
}

}  // namespace disclosure::commands
