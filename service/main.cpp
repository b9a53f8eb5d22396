#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>
#include <string>
#include <vector>

#include "service/commands/Commands.h"
#include "service/commands/Settings.h"

namespace {

using disclosure::Person;
using disclosure::Settings;

int run(int argc, char** argv) {
    namespace commands = disclosure::commands;
    CLI::App app("Keeps the technical disclosures of building sites", "disclosure-service");
    app.require_subcommand(1);
    app.fallthrough();

    std::string config;
    std::string listen;
    std::string database;
    Settings settings;
    app.add_option("--config", config, "TOML file with the settings")->check(CLI::ExistingFile);
    const auto* named = app.add_option("--database", database, "sqlite:PATH");

    auto* serve = app.add_subcommand("serve", "answers requests until it is told to end");
    serve->add_option("--listen", listen, "HOST:PORT; port 0 takes a free one");
    serve->add_option("--port-file", settings.portFile, "file that gets the port's number");
    auto* migrate = app.add_subcommand("migrate", "brings the database's tables up to date");
    auto* seed = app.add_subcommand("seed", "fills in data");
    std::string organisation;
    bool demo = false;
    disclosure::LoadSettings load;
    auto* kinds = seed->add_option_group("what");
    kinds->add_flag("--demo", demo, "the demonstration's departments, people, catalogs and tasks");
    kinds->add_option("--organisation", organisation, "TOML file with departments and projects")
        ->check(CLI::ExistingFile);
    auto* tasks = kinds->add_option("--tasks", load.tasks, "a made-up department with so many tasks");
    kinds->require_option(1);
    tasks->check(CLI::Range(1, 100'000'000));
    seed->add_option("--department", load.deptId, "the made-up department's id, and its head's name and password");
    seed->add_option("--catalogs", load.catalogs, "its catalogs")->check(CLI::Range(2, 100'000));
    seed->add_option("--seed", load.seed, "the same number makes the same data");
    auto* version = app.add_subcommand("version", "tells the version");

    Person person;
    std::vector<std::string> rights;
    auto* user = app.add_subcommand("user", "people and their rights; passwords are read from the standard input");
    user->require_subcommand(1);
    auto* add = user->add_subcommand("add", "adds a person as a member of a department");
    auto* passwd = user->add_subcommand("passwd", "changes a password and ends the person's sessions");
    auto* grant = user->add_subcommand("grant", "sets exactly which rights a person has in a department");
    auto* mail = user->add_subcommand("mail", "sets the address reminders are mailed to; an empty one ends that");
    auto* leave = user->add_subcommand("leave", "ends a membership with its rights");
    auto* deactivate =
        user->add_subcommand("deactivate", "ends the person's sessions; no log-in and nothing new for them");
    auto* activate = user->add_subcommand("activate", "undoes that");
    auto* list =
        user->add_subcommand("list", "lists the people with their department, whether they are active, and rights");
    for (auto* command : {add, passwd, grant, mail, leave, deactivate, activate})
        command->add_option("username", person.username)->required();
    add->add_option("--realname", person.realname)->required();
    for (auto* command : {add, grant, leave})
        command->add_option("--dept", person.deptId, "the department's id")->required();
    mail->add_option("address", person.mail)->required();
    grant->add_option("rights", rights, "keys of rights, or all; none takes every right away");

    CLI11_PARSE(app, argc, argv);
    if (!config.empty())
        settings.read(config);
    if (!listen.empty())
        settings.listen(listen);
    if (*named)
        settings.database = database;
    spdlog::set_level(spdlog::level::from_str(settings.logLevel));

    if (*serve)
        return commands::serve(settings);
    if (*migrate)
        return commands::migrate(settings);
    if (!organisation.empty())
        return commands::seedOrganisation(settings, organisation);
    if (*tasks)
        return commands::seedLoadDepartment(settings, load);
    if (demo)
        return commands::seedDemonstration(settings);
    if (*add)
        return commands::addUser(settings, person);
    if (*passwd)
        return commands::changePassword(settings, person.username);
    if (*grant)
        return commands::grant(settings, person.username, person.deptId, rights);
    if (*mail)
        return commands::setMail(settings, person.username, person.mail);
    if (*leave)
        return commands::leave(settings, person.username, person.deptId);
    if (*deactivate || *activate)
        return commands::setActive(settings, person.username, activate->parsed());
    if (*list)
        return commands::listUsers(settings);
    if (*version)
        std::cout << DISCLOSURE_VERSION << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    // The standard output belongs to the commands' answers.
    spdlog::set_default_logger(spdlog::stderr_logger_mt("service"));
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "disclosure-service: " << error.what() << '\n';
        return 1;
    }
}
