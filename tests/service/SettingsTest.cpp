#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <toml++/toml.h>

#include "service/commands/Settings.h"
#include "tests/service/TestService.h"

namespace disclosure::testing {
namespace {

using Read = std::function<std::string(const Settings&)>;

/// A key, a value that is not its default, and how to see that it has been taken over. A value that is an address's or
/// a duration's is seen as it is kept.
struct Row {
    const char* key;
    const char* value;
    const char* seen;
    Read read;
};

template <class Value>
std::string shown(const Value& value) {
    std::ostringstream text;
    text << std::boolalpha << value;
    return text.str();
}

std::string shown(const std::vector<std::string>& values) {
    std::string all;
    for (const std::string& value : values)
        all += value + ";";
    return all;
}

#define SEEN(expression) [](const Settings& s) { return shown(s.expression); }

const std::vector<Row>& rows() {
    static const std::vector<Row> all{
        {"server.listen", R"("[::1]:99")", "::1 99",
         [](const Settings& s) { return s.server.host + " " + shown(s.server.port); }},
        {"server.hosts", R"(["a", "b"])", "a;b;", SEEN(hosts)},
        {"server.proxies", R"(["10.0.0.0/8"])", "10.0.0.0/8;", SEEN(server.proxies)},
        {"server.behind_tls", "true", "true", SEEN(behindTls)},
        {"server.io_threads", "3", "3", SEEN(server.ioThreads)},
        {"server.connections", "7", "7", SEEN(server.mostConnections)},
        {"server.connections_of_one", "7", "7", SEEN(server.connectionsOfOne)},
        {"server.log_level", R"("debug")", "debug", SEEN(logLevel)},
        {"database.url", R"("sqlite:x")", "sqlite:x", SEEN(database)},
        {"database.readers", "13", "13", SEEN(dispatcher.readers)},
        {"files.folder", R"("x")", "x", SEEN(filesFolder)},
        {"files.quota_megabytes", "7", "7", SEEN(quotaMegabytes)},
        {"files.keep_hours", "7", "7", SEEN(keepHours)},
        {"files.aside_days", "7", "7", SEEN(asideDays)},
        {"files.deleted_days", "7", "7", SEEN(deletedDays)},
        {"files.uploads", "7", "7", SEEN(dispatcher.uploads)},
        {"files.uploads_of_one", "7", "7", SEEN(dispatcher.uploadsOfOne)},
        {"files.downloads", "7", "7", SEEN(dispatcher.downloads)},
        {"files.downloads_of_one", "7", "7", SEEN(dispatcher.downloadsOfOne)},
        {"login.workers", "7", "7", SEEN(dispatcher.loginWorkers)},
        {"login.attempts", "7", "7", SEEN(limits.attempts)},
        {"login.attempts_of_client", "7", "7", SEEN(limits.attemptsOfClient)},
        {"login.attempts_on_person", "7", "7", SEEN(limits.attemptsOnPerson)},
        {"login.window_minutes", "7", "420000", SEEN(limits.attemptsWindow)},
        {"session.idle_minutes", "7", "420000", SEEN(limits.idle)},
        {"session.absolute_minutes", "7", "420000", SEEN(limits.absolute)},
        {"reminders.enabled", "false", "false", SEEN(reminds)},
        {"reminders.interval_seconds", "7", "7", SEEN(remindEvery.count())},
        {"reminders.time_zone", R"("Europe/Berlin")", "Europe/Berlin", SEEN(reminders.timeZone)},
        {"reminders.hour", "7", "7", SEEN(reminders.hour)},
        {"reminders.keep_days", "7", "7", SEEN(reminders.keepDays)},
        {"mail.url", R"("smtp://h:25")", "smtp://h:25 true",
         [](const Settings& s) { return s.mail.url + " " + shown(s.reminders.mail); }},
        {"mail.from", R"("a@b.c")", "a@b.c", SEEN(mail.from)},
        {"mail.username", R"("u")", "u", SEEN(mail.username)},
        {"mail.password_file", "\"PASSWORD\"", "secret", SEEN(mail.password)},
        {"mail.starttls", R"("off")", "2", [](const Settings& s) { return shown(static_cast<int>(s.mail.startTls)); }},
    };
    return all;
}

class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() { write("password", "secret\nmore"); }
    void write(const std::string& name, const std::string& text) const { std::ofstream(folder.file(name)) << text; }
    Settings read(std::string text) const {
        if (const auto at = text.find("PASSWORD"); at != std::string::npos)
            text.replace(at, 8, folder.file("password"));
        write("config", text);
        Settings settings;
        settings.read(folder.file("config"));
        return settings;
    }
    static std::string line(const Row& row) { return std::string(row.key) + " = " + row.value + "\n"; }

    TempFolder folder;
};

TEST_F(SettingsTest, EveryKeySetsWhatItNamesAndNothingElse) {
    for (const Row& row : rows()) {
        // A mail server is not taken without a sender.
        const std::string besides = std::string(row.key) == "mail.url" ? "mail.from = \"a@b.c\"\n" : "";
        const Settings before = read(besides);
        const Settings after = read(besides + line(row));
        for (const Row& other : rows())
            EXPECT_EQ(other.read(after), &other == &row ? row.seen : other.read(before)) << row.key << " " << other.key;
        EXPECT_NE(row.read(before), row.seen) << row.key << ": the value tells nothing";
    }
}

TEST_F(SettingsTest, TheManualNamesEveryKeyWithItsDefault) {
    std::ifstream file(SOURCE_ROOT "/docs/service.md");
    std::stringstream text;
    text << file.rdbuf();
    const std::string manual = text.str();
    const auto begin = manual.find("```toml\n") + 8;
    const std::string block = manual.substr(begin, manual.find("```", begin) - begin);
    std::set<std::string> named;
    for (const auto& [section, keys] : toml::parse(block)) {
        for (const auto& [key, value] : *keys.as_table())
            named.insert(std::string(section.str()) + "." + std::string(key.str()));
    }
    std::set<std::string> known;
    for (const Row& row : rows())
        known.insert(row.key);
    EXPECT_EQ(named, known);
    const Settings defaults;
    std::string readable = block;
    const auto password = readable.find("\npassword_file") + 1;  // an empty name of a file is no file
    readable.erase(password, readable.find('\n', password) - password);
    const Settings written = read(readable);
    for (const Row& row : rows()) {
        const std::string key = row.key;
        if (key != "database.url" && key != "database.readers") {
            EXPECT_EQ(row.read(written), row.read(defaults)) << key;
        }
    }
}

TEST_F(SettingsTest, WhatIsNoValueIsRefusedByTheNameOfItsKey) {
    for (const auto& [text, named] : {std::pair("server.proxies = [\"localhost\"]", "server.proxies"),
                                      {"server.behind_tls = 1", "server.behind_tls"},
                                      {"server.hosts = \"a\"", "server.hosts"},
                                      {"login.attempts = 0", "login.attempts"},
                                      {"files.downloads = \"7\"", "files.downloads"},
                                      {"mail.starttls = \"yes\"", "mail.starttls"},
                                      {"server.nothing = 1", "server.nothing is not known"},
                                      {"mail.url = \"smtp://h:25\"", "mail.from"}}) {
        try {
            read(text);
            ADD_FAILURE() << text;
        } catch (const std::invalid_argument& error) {
            EXPECT_NE(std::string(error.what()).find(named), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace disclosure::testing
