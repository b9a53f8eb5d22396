#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <spdlog/spdlog.h>
#include <stdexcept>

#include "service/commands/Commands.h"
#include "service/commands/Descriptors.h"
#include "service/commands/Open.h"
#include "service/commands/Repeating.h"
#include "service/domain/Catalogs.h"
#include "service/domain/Documents.h"
#include "service/domain/Reminders.h"
#include "service/files/Sweep.h"
#include "service/http/Service.h"
#include "service/mail/Outbox.h"
#include "service/mail/SmtpSender.h"

namespace disclosure::commands {

namespace {

constexpr int SortEvery = 24;  // turns of the sweep
using Days = std::chrono::duration<std::int64_t, std::ratio<86'400>>;

/// Whole or absent, so that who waits for the file never reads half a number.
void writePort(const std::string& file, std::uint16_t port) {
    const std::string draft = file + ".new";
    std::ofstream out(draft, std::ios::trunc);
    out << port << '\n';
    out.close();
    if (!out || std::rename(draft.c_str(), file.c_str()) != 0)
        throw std::runtime_error("cannot write " + file);
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

}  // namespace

int serve(const Settings& settings) {
    // Writing beyond a limit on the size of files is to fail like on a full disk instead of ending the process.
    std::signal(SIGXFSZ, SIG_IGN);
    const auto database = migratedDatabaseOf(settings);
    const FileFolder files = filesOf(settings, *database->connect());
    const Service service({settings.hosts, settings.limits, now, Passwords::Cost::Interactive,
                           settings.quotaMegabytes * 1024 * 1024, settings.behindTls},
                          files);
    Dispatcher dispatcher(service, *database, settings.dispatcher);
    std::unique_ptr<Reminding> reminding;  // before anybody is told of a service that then ends
    if (settings.reminds)
        reminding = std::make_unique<Reminding>(settings, *database);
    Server::Settings ofServer = settings.server;
    ofServer.mostConnections = raiseDescriptors(settings);
    Server server(dispatcher, ofServer);
    server.stopAtSignals();  // before anybody knows of it
    const bool bracketed = settings.server.host.find(':') != std::string::npos;
    std::cout << "listening on " << (bracketed ? "[" : "") << settings.server.host << (bracketed ? "]" : "") << ':'
              << server.port() << std::endl;
    if (!settings.portFile.empty())
        writePort(settings.portFile, server.port());
    const std::chrono::hours keep(settings.keepHours);
    const Repeating sweeping("sweep", std::chrono::hours(1), [&, turn = 0](const GoOn& goOn) mutable {
        const auto store = database->connect();
        clearDeletedDocuments(*store, now() - settings.deletedDays * Day, goOn);
        sweepFiles(*store, files, keep, now(), goOn);
        if (turn++ % SortEvery == 0)
            sortFolder(*store, files, keep, Days(settings.asideDays), goOn);
    });
    const auto clearingStore = database->connect();
    const Repeating clearing("removed catalogs", std::chrono::seconds(1),
                             [&](const GoOn& goOn) { clearRemoved(*clearingStore, goOn); });
    if (reminding)
        reminding->start();
    server.run();
    spdlog::info("stopped");
    return 0;
}

}  // namespace disclosure::commands
