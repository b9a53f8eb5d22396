#include "service/Commands.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <spdlog/spdlog.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

#include "service/Organisation.h"
#include "service/Repeating.h"
#include "service/domain/Demo.h"
#include "service/domain/DemoTasks.h"
#include "service/domain/Reminders.h"
#include "service/domain/Text.h"
#include "service/files/FileFolder.h"
#include "service/files/Sweep.h"
#include "service/http/Service.h"
#include "service/mail/Outbox.h"
#include "service/mail/SmtpSender.h"
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

/// Whole or absent, so that who waits for the file never reads half a number.
void writePort(const std::string& file, std::uint16_t port) {
    const std::string draft = file + ".new";
    std::ofstream out(draft, std::ios::trunc);
    out << port << '\n';
    out.close();
    if (!out || std::rename(draft.c_str(), file.c_str()) != 0)
        throw std::runtime_error("cannot write " + file);
}

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

/// Reminds, and sends the mails of it, from its start to its end.
class Reminding {
public:
    /// Throws when the settings do not do.
    Reminding(const Settings& settings, IDatabase& database)
        : m_every(settings.remindEvery), m_rules(settings.reminders, now), m_store(database.connect()) {
        if (!settings.mail.url.empty()) {
            m_sender = std::make_unique<SmtpSender>(settings.mail, [this] { return m_ending.load(); });
            m_mailStore = database.connect();
        }
    }
    ~Reminding() { m_ending = true; }
    Reminding(const Reminding&) = delete;
    Reminding& operator=(const Reminding&) = delete;

    void start() {
        if (m_sender) {
            m_mailing = std::make_unique<Repeating>("mails", m_every, [this](const GoOn&) {
                m_outbox.run(*m_mailStore, *m_sender, [this] { return !m_ending; });
            });
        }
        m_making = std::make_unique<Repeating>("reminders", m_every, [this](const GoOn& goOn) {
            if (const auto made = m_rules.run(*m_store, goOn); made > 0)
                spdlog::info("{} reminders made", made);
            m_rules.tidy(*m_store, goOn);
        });
    }

private:
    std::atomic<bool> m_ending{false};
    std::chrono::seconds m_every;
    Reminders m_rules;
    Outbox m_outbox{m_rules, now};
    std::unique_ptr<IStore> m_store;
    std::unique_ptr<IStore> m_mailStore;
    std::unique_ptr<SmtpSender> m_sender;
    std::unique_ptr<Repeating> m_making;
    std::unique_ptr<Repeating> m_mailing;
};

Person known(IStore& store, const std::string& username) {
    auto person = store.person(username);
    if (!person)
        throw std::invalid_argument("there is no user " + username);
    return *person;
}

}  // namespace

int serve(const Settings& settings) {
    // Writing beyond a limit on the size of files is to fail like on a full disk instead of ending the process.
    std::signal(SIGXFSZ, SIG_IGN);
    const auto database = migratedDatabaseOf(settings);
    const FileFolder files = filesOf(settings);
    const Service service(
        {settings.hosts, settings.limits, now, Passwords::Cost::Interactive, settings.quotaMegabytes * 1024 * 1024},
        files);
    Dispatcher dispatcher(service, *database, settings.dispatcher);
    std::unique_ptr<Reminding> reminding;  // before anybody is told of a service that then ends
    if (settings.reminds)
        reminding = std::make_unique<Reminding>(settings, *database);
    Server server(dispatcher, settings.server);
    const bool bracketed = settings.server.host.find(':') != std::string::npos;
    std::cout << "listening on " << (bracketed ? "[" : "") << settings.server.host << (bracketed ? "]" : "") << ':'
              << server.port() << std::endl;
    if (!settings.portFile.empty())
        writePort(settings.portFile, server.port());
    const Repeating sweeping("sweep", std::chrono::hours(1), [&](const GoOn& goOn) {
        sweepFiles(*database->connect(), files, std::chrono::hours(settings.keepHours), now(), goOn);
    });
    if (reminding)
        reminding->start();
    server.run(true);
    spdlog::info("stopped");
    return 0;
}

int migrate(const Settings& settings) {
    std::cout << databaseOf(settings)->migrate() << " steps taken\n";
    return 0;
}

int seedDemonstration(const Settings& settings) {
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    const FileFolder files = filesOf(settings);
    const auto keep = [&files](const std::string& uuid, const std::string& content) {
        const auto writer = files.create(uuid);
        writer->write(content);
        return writer->finish();
    };
    if (seedDemo(*store, Passwords()))
        seedDemoTasks(*store, now(), keep);
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

int addUser(const Settings& settings, const Person& person) {
    if (!isId(person.username))
        throw std::invalid_argument("a user name has 1 to 64 of the characters A-Z a-z 0-9 _ -");
    if (!isUtf8(person.realname) || person.realname.empty())
        throw std::invalid_argument("the real name must be given, in UTF-8");
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    Person added = person;
    added.passwordHash = Passwords().hash(readPassword());
    Transaction transaction(*store, IStore::Access::Write);
    if (store->person(added.username))
        throw std::invalid_argument("there is a user " + added.username + " already");
    if (!store->department(added.deptId))
        throw std::invalid_argument("there is no department " + added.deptId);
    store->putPerson(added);
    store->putMember(added.deptId, added.username);
    transaction.commit();
    return 0;
}

int changePassword(const Settings& settings, const std::string& username) {
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    known(*store, username);
    const std::string hash = Passwords().hash(readPassword());
    Transaction transaction(*store, IStore::Access::Write);
    Person person = known(*store, username);
    person.passwordHash = hash;
    store->putPerson(person);
    store->removeSessionsOf(username);
    transaction.commit();
    return 0;
}

int setMail(const Settings& settings, const std::string& username, const std::string& address) {
    if (!address.empty() && !isMailAddress(address))
        throw std::invalid_argument("\"" + address + "\" is no mail address");
    const auto database = migratedDatabaseOf(settings);
    const auto store = database->connect();
    Transaction transaction(*store, IStore::Access::Write);
    Person person = known(*store, username);
    person.mail = address;
    store->putPerson(person);
    transaction.commit();
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
    Transaction transaction(*store, IStore::Access::Write);
    known(*store, username);
    if (!store->department(deptId))
        throw std::invalid_argument("there is no department " + deptId);
    store->putMember(deptId, username);
    store->putRights(deptId, username, rights);
    transaction.commit();
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
