#include <iostream>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

#include "service/commands/Commands.h"
#include "service/commands/Open.h"
#include "service/ports/Changing.h"
#include "service/text/Text.h"

namespace disclosure::commands {

namespace {

/// From the terminal without showing it, else the first line of the standard input.
std::string readPassword() {
    const bool terminal = ::isatty(STDIN_FILENO) != 0;
    termios shown{};
    if (terminal) {
        std::cerr << "Password: " << std::flush;
        ::tcgetattr(STDIN_FILENO, &shown);
        termios hidden = shown;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    std::string password;
    std::getline(std::cin, password);
    if (terminal) {
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown);
        std::cerr << '\n';
    }
    if (password.empty())
        throw std::invalid_argument("the password may not be empty");
    return password;
}

Person known(IStore& store, const std::string& username) {
    auto person = store.person(username);
    if (!person)
        throw std::invalid_argument("there is no user " + username);
    return *person;
}

}  // namespace

int addUser(const Settings& settings, const Person& person) {
    if (!isId(person.username))
        throw std::invalid_argument("a user name has 1 to 64 of the characters A-Z a-z 0-9 _ -");
    if (!isUtf8(person.realname) || person.realname.empty())
        throw std::invalid_argument("the real name must be given, in UTF-8");
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    Person added = person;
    added.passwordHash = Passwords().hash(readPassword());
    changing(*store, [&] {
        if (store->person(added.username))
            throw std::invalid_argument("there is a user " + added.username + " already");
        if (!store->department(added.deptId))
            throw std::invalid_argument("there is no department " + added.deptId);
        store->putPerson(added);
        store->putMember(added.deptId, added.username);
    });
    return 0;
}

int changePassword(const Settings& settings, const std::string& username) {
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    known(*store, username);
    const std::string hash = Passwords().hash(readPassword());
    changing(*store, [&] {
        Person person = known(*store, username);
        person.passwordHash = hash;
        store->putPerson(person);
        store->removeSessionsOf(username);
    });
    return 0;
}

int setMail(const Settings& settings, const std::string& username, const std::string& address) {
    if (!address.empty() && !isMailAddress(address))
        throw std::invalid_argument("\"" + address + "\" is no mail address");
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    changing(*store, [&] {
        Person person = known(*store, username);
        person.mail = address;
        store->putPerson(person);
    });
    return 0;
}

int grant(const Settings& settings, const std::string& username, const std::string& deptId,
          const std::vector<std::string>& keys) {
    Rights rights;
    for (const std::string& key : keys) {
        if (key == "all")
            rights.insert({Right::EditCatalogs, Right::EditTasks, Right::DeleteTasks});
        else if (const auto right = rightOf(key))
            rights.insert(*right);
        else
            throw std::invalid_argument("there is no right " + key);
    }
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    changing(*store, [&] {
        known(*store, username);
        if (!store->department(deptId))
            throw std::invalid_argument("there is no department " + deptId);
        store->putMember(deptId, username);
        store->putRights(deptId, username, rights);
    });
    return 0;
}

int listUsers(const Settings& settings) {
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    for (const Person& person : store->people()) {
        std::cout << person.username << '\t' << person.realname << '\t' << person.deptId;
        for (const Right right : store->rightsOf(person.username, person.deptId).value_or(Rights{}))
            std::cout << '\t' << keyOf(right);
        std::cout << '\n';
    }
    return 0;
}

}  // namespace disclosure::commands
