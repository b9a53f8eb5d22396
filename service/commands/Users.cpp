#include <functional>
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
    if (password.size() > Passwords::Longest || !isUtf8(password) || password.find('\0') != std::string::npos)
        throw std::invalid_argument("nobody could log in with this password: it must be valid UTF-8 of at most " +
                                    std::to_string(Passwords::Longest) + " bytes");
    return password;
}

Person known(IStore& store, const std::string& username) {
    auto person = store.person(username);
    if (!person)
        throw std::invalid_argument("there is no user " + username);
    return *person;
}

/// Makes the change as one transaction.
int changing(const Settings& settings, const std::function<void(IStore&)>& change) {
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    disclosure::changing(*store, [&] { change(*store); });
    return 0;
}

int changingPerson(const Settings& settings, const std::string& username,
                   const std::function<void(IStore&, Person&)>& change) {
    return changing(settings, [&](IStore& store) {
        Person person = known(store, username);
        change(store, person);
        store.putPerson(person);
    });
}

}  // namespace

int addUser(const Settings& settings, const Person& person) {
    if (!isId(person.username))
        throw std::invalid_argument("a user name has 1 to 64 of the characters A-Z a-z 0-9 _ -");
    if (!isUtf8(person.realname) || person.realname.empty())
        throw std::invalid_argument("the real name must be given, in UTF-8");
    Person added = person;
    added.passwordHash = Passwords().hash(readPassword());
    return changing(settings, [&](IStore& store) {
        if (store.person(added.username))
            throw std::invalid_argument("there is a user " + added.username + " already");
        if (!store.department(added.deptId))
            throw std::invalid_argument("there is no department " + added.deptId);
        store.putPerson(added);
        store.putMember(added.deptId, added.username);
    });
}

int changePassword(const Settings& settings, const std::string& username) {
    known(*migratedDatabaseOf(settings)->connect(), username);  // before anybody types
    const std::string hash = Passwords().hash(readPassword());
    return changingPerson(settings, username, [&](IStore& store, Person& person) {
        person.passwordHash = hash;
        store.removeSessionsOf(username);
    });
}

int setMail(const Settings& settings, const std::string& username, const std::string& address) {
    if (!address.empty() && !isMailAddress(address))
        throw std::invalid_argument("\"" + address + "\" is no mail address");
    return changingPerson(settings, username, [&](IStore&, Person& person) { person.mail = address; });
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
    return changing(settings, [&](IStore& store) {
        known(store, username);
        if (!store.department(deptId))
            throw std::invalid_argument("there is no department " + deptId);
        store.putMember(deptId, username);
        store.putRights(deptId, username, rights);
    });
}

int leave(const Settings& settings, const std::string& username, const std::string& deptId) {
    return changing(settings, [&](IStore& store) {
        known(store, username);
        if (!store.removeMember(deptId, username))
            throw std::invalid_argument(username + " is no member of " + deptId + " itself");
    });
}

int setActive(const Settings& settings, const std::string& username, bool active) {
    return changingPerson(settings, username, [&](IStore& store, Person& person) {
        person.active = active;
        if (!active)
            store.removeSessionsOf(username);
    });
}

int listUsers(const Settings& settings) {
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    for (const Person& person : store->people()) {
        std::cout << person.username << '\t' << person.realname << '\t' << person.deptId << '\t'
                  << (person.active ? "active" : "deactivated");
        for (const Right right : store->rightsOf(person.username, person.deptId).value_or(Rights{}))
            std::cout << '\t' << keyOf(right);
        std::cout << '\n';
    }
    return 0;
}

}  // namespace disclosure::commands
