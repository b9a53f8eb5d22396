#include "service/commands/Settings.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <thread>
#include <toml++/toml.h>

#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::int64_t Minute = 60LL * 1000;
constexpr std::uint16_t UsualPort = 8780;

std::string usualDatabase() {
    const char* data = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    const std::string folder = data && *data ? data : std::string(home ? home : ".") + "/.local/share";
    return "sqlite:" + folder + "/disclosure-service/disclosure.db";
}

[[noreturn]] void wrong(const std::string& key, const char* why) {
    throw std::invalid_argument("configuration: " + key + " " + why);
}

std::string text(const toml::node& node, const std::string& key) {
    const auto value = node.value_exact<std::string>();
    if (!value)
        wrong(key, "must be a text");
    return *value;
}

std::int64_t number(const toml::node& node, const std::string& key, std::int64_t least, std::int64_t most) {
    const auto value = node.value_exact<std::int64_t>();
    if (!value || *value < least || *value > most)
        wrong(key, ("must be a whole number from " + std::to_string(least) + " to " + std::to_string(most)).c_str());
    return *value;
}

std::vector<std::string> texts(const toml::node& node, const std::string& key) {
    if (!node.is_array())
        wrong(key, "must be a list of texts");
    std::vector<std::string> all;
    for (const toml::node& one : *node.as_array())
        all.push_back(text(one, key));
    return all;
}

std::vector<std::string> proxies(const toml::node& node, const std::string& key) {
    std::vector<std::string> all = texts(node, key);
    try {
        static_cast<void>(Clients(all));
    } catch (const std::invalid_argument& error) {
        wrong(key, error.what());
    }
    return all;
}

bool flag(const toml::node& node, const std::string& key) {
    const auto value = node.value_exact<bool>();
    if (!value)
        wrong(key, "must be true or false");
    return *value;
}

MailSettings::StartTls startTlsOf(const std::string& word, const std::string& key) {
    if (word == "required")
        return MailSettings::StartTls::Required;
    if (word == "optional")
        return MailSettings::StartTls::Optional;
    if (word != "off")
        wrong(key, "must be \"required\", \"optional\" or \"off\"");
    return MailSettings::StartTls::Off;
}

/// The file's first line.
std::string secretIn(const std::string& file, const std::string& key) {
    std::ifstream in(file);
    std::string secret;
    if (!std::getline(in, secret) || secret.empty())
        wrong(key, "names a file without a first line");
    return secret;
}

void check(const MailSettings& mail) {
    if (mail.url.empty())
        return;
    if (!mail.url.starts_with("smtp://") && !mail.url.starts_with("smtps://"))
        wrong("mail.url", "must begin with smtp:// or smtps://");
    if (mail.url.find_first_of("@ /", mail.url.find("//") + 2) != std::string::npos)
        wrong("mail.url", "must have nothing besides HOST:PORT after that");
    if (!isMailAddress(mail.from))
        wrong("mail.from", "must be a mail address");
    if (mail.username.empty() != mail.password.empty())
        wrong("mail.username", "and mail.password_file belong together");
}

}  // namespace

Settings::Settings() : database(usualDatabase()) {
    server.port = UsualPort;
    dispatcher.readers = std::max(2U, std::thread::hardware_concurrency());
}

void Settings::read(const std::string& file) {
    using Setter = std::function<void(const toml::node&, const std::string&)>;
    const std::map<std::string, Setter> setters{
        {"server.listen", [&](auto& node, auto& key) { listen(text(node, key)); }},
        {"server.hosts", [&](auto& node, auto& key) { hosts = texts(node, key); }},
        {"server.proxies", [&](auto& node, auto& key) { server.proxies = proxies(node, key); }},
        {"server.behind_tls", [&](auto& node, auto& key) { behindTls = flag(node, key); }},
        {"server.io_threads", [&](auto& node, auto& key) { server.ioThreads = number(node, key, 1, 64); }},
        {"server.connections", [&](auto& node, auto& key) { server.mostConnections = number(node, key, 1, 100'000); }},
        {"server.connections_of_one",
         [&](auto& node, auto& key) { server.connectionsOfOne = number(node, key, 1, 100'000); }},
        {"server.log_level", [&](auto& node, auto& key) { logLevel = text(node, key); }},
        {"database.url", [&](auto& node, auto& key) { database = text(node, key); }},
        {"database.readers", [&](auto& node, auto& key) { dispatcher.readers = number(node, key, 1, 64); }},
        {"files.folder", [&](auto& node, auto& key) { filesFolder = text(node, key); }},
        {"files.quota_megabytes", [&](auto& node, auto& key) { quotaMegabytes = number(node, key, 1, 1'000'000'000); }},
        {"files.keep_hours",
         [&](auto& node, auto& key) { keepHours = static_cast<std::int32_t>(number(node, key, 1, 8760)); }},
        {"files.aside_days",
         [&](auto& node, auto& key) { asideDays = static_cast<std::int32_t>(number(node, key, 1, 3650)); }},
        {"files.deleted_days",
         [&](auto& node, auto& key) { deletedDays = static_cast<std::int32_t>(number(node, key, 1, 3650)); }},
        {"files.uploads", [&](auto& node, auto& key) { dispatcher.uploads = number(node, key, 1, 1000); }},
        {"files.downloads", [&](auto& node, auto& key) { dispatcher.downloads = number(node, key, 1, 10'000); }},
        {"files.uploads_of_one", [&](auto& node, auto& key) { dispatcher.uploadsOfOne = number(node, key, 1, 1000); }},
        {"files.downloads_of_one",
         [&](auto& node, auto& key) { dispatcher.downloadsOfOne = number(node, key, 1, 10'000); }},
        {"login.workers", [&](auto& node, auto& key) { dispatcher.loginWorkers = number(node, key, 1, 16); }},
        {"login.attempts",
         [&](auto& node, auto& key) { limits.attempts = static_cast<std::int32_t>(number(node, key, 1, 1000)); }},
        {"login.attempts_of_client",
         [&](auto& node, auto& key) {
             limits.attemptsOfClient = static_cast<std::int32_t>(number(node, key, 1, 100'000));
         }},
        {"login.attempts_on_person",
         [&](auto& node, auto& key) {
             limits.attemptsOnPerson = static_cast<std::int32_t>(number(node, key, 1, 100'000));
         }},
        {"login.window_minutes",
         [&](auto& node, auto& key) { limits.attemptsWindow = number(node, key, 1, 1440) * Minute; }},
        {"session.idle_minutes", [&](auto& node, auto& key) { limits.idle = number(node, key, 2, 1440) * Minute; }},
        {"session.absolute_minutes",
         [&](auto& node, auto& key) { limits.absolute = number(node, key, 2, 43'200) * Minute; }},
        {"reminders.enabled", [&](auto& node, auto& key) { reminds = flag(node, key); }},
        {"reminders.interval_seconds",
         [&](auto& node, auto& key) { remindEvery = std::chrono::seconds(number(node, key, 1, 3600)); }},
        {"reminders.time_zone", [&](auto& node, auto& key) { reminders.timeZone = text(node, key); }},
        {"reminders.hour", [&](auto& node, auto& key) { reminders.hour = static_cast<int>(number(node, key, 0, 23)); }},
        {"reminders.keep_days",
         [&](auto& node, auto& key) { reminders.keepDays = static_cast<int>(number(node, key, 1, 3650)); }},
        {"mail.url", [&](auto& node, auto& key) { mail.url = text(node, key); }},
        {"mail.from", [&](auto& node, auto& key) { mail.from = text(node, key); }},
        {"mail.username", [&](auto& node, auto& key) { mail.username = text(node, key); }},
        {"mail.password_file", [&](auto& node, auto& key) { mail.password = secretIn(text(node, key), key); }},
        {"mail.starttls", [&](auto& node, auto& key) { mail.startTls = startTlsOf(text(node, key), key); }},
    };

    toml::table root;
    try {
        root = toml::parse_file(file);
    } catch (const toml::parse_error& error) {
        throw std::invalid_argument("configuration: " + file + " line " + std::to_string(error.source().begin.line) +
                                    ": " + std::string(error.description()));
    }
    for (const auto& [section, content] : root) {
        if (!content.is_table())
            wrong(std::string(section.str()), "must be a section");
        for (const auto& [name, node] : *content.as_table()) {
            const std::string key = std::string(section.str()) + "." + std::string(name.str());
            const auto setter = setters.find(key);
            if (setter == setters.end())
                wrong(key, "is not known");
            setter->second(node, key);
        }
    }
    check(mail);
    reminders.mail = !mail.url.empty();
}

void Settings::listen(const std::string& address) {
    const auto colon = address.rfind(':');
    if (colon == std::string::npos || colon == 0)
        throw std::invalid_argument("the address to listen at must be HOST:PORT");
    const char* end = address.data() + address.size();
    std::uint16_t port = 0;
    const auto read = std::from_chars(address.data() + colon + 1, end, port);
    if (read.ptr != end || read.ec != std::errc() || colon + 1 == address.size())
        throw std::invalid_argument("the port must be a number from 0 to 65535");
    std::string host = address.substr(0, colon);
    if (host.front() == '[' && host.back() == ']')
        host = host.substr(1, host.size() - 2);
    server.host = host;
    server.port = port;
}

}  // namespace disclosure
