#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "service/domain/Accounts.h"
#include "service/domain/Reminders.h"
#include "service/http/Dispatcher.h"
#include "service/http/Server.h"
#include "service/mail/SmtpSender.h"

namespace disclosure {

/// What the command line and the configuration file say.
struct Settings {
    Server::Settings server;
    Dispatcher::Settings dispatcher;
    AccountLimits limits;
    bool reminds = true;
    std::chrono::seconds remindEvery{60};
    ReminderSettings reminders;
    MailSettings mail;
    std::vector<std::string> hosts;
    bool behindTls = false;
    std::string database;                  // "sqlite:PATH"
    std::string filesFolder;               // empty: beside the database
    std::int64_t quotaMegabytes = 51'200;  // of a department's files
    std::int32_t keepHours = 24;           // for files that no task refers to
    std::int32_t asideDays = 14;           // for contents that were set aside
    std::int32_t deletedDays = 30;         // for deleted documents
    std::string portFile;
    std::string logLevel = "info";

    Settings();
    /// Takes over what the TOML file says. Throws with the place and the reason when it is wrong, an unknown key
    /// included.
    void read(const std::string& file);
    /// Takes over "HOST:PORT"; an IPv6 address stands in brackets.
    void listen(const std::string& address);
};

}  // namespace disclosure
