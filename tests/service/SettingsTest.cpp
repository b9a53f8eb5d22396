#include <toml++/toml.h>

#include "service/commands/Settings.h"
#include "tests/service/TestService.h"

namespace disclosure::testing {
namespace {

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

/// What each key of the manual sets, in the manual's order.
std::vector<std::string> seen(const Settings& s) {
    const auto all = [](const auto&... values) { return std::vector<std::string>{shown(values)...}; };
    return all(s.server.host + " " + shown(s.server.port), s.hosts, s.server.proxies, s.behindTls, s.server.ioThreads,
               s.server.mostConnections, s.server.connectionsOfOne, s.logLevel, s.database, s.dispatcher.readers,
               s.filesFolder, s.quotaMegabytes, s.keepHours, s.asideDays, s.deletedDays, s.dispatcher.uploads,
               s.dispatcher.uploadsOfOne, s.dispatcher.downloads, s.dispatcher.downloadsOfOne,
               s.dispatcher.loginWorkers, s.limits.attempts, s.limits.attemptsOfClient, s.limits.attemptsOnPerson,
               s.limits.attemptsWindow, s.limits.idle, s.limits.absolute, s.reminds, s.remindEvery.count(),
               s.reminders.timeZone, s.reminders.hour, s.reminders.keepDays, s.mail.url + " " + shown(s.reminders.mail),
               s.mail.from, s.mail.username, s.mail.password, static_cast<int>(s.mail.startTls));
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
    /// A value that is not the key's default, and how it is seen.
    static std::pair<std::string, std::string> other(const std::string& key, const toml::node& value) {
        static const std::map<std::string, std::pair<std::string, std::string>> particular{
            {"server.listen", {R"("[::1]:99")", "::1 99"}},
            {"server.proxies", {R"(["10.0.0.0/8"])", "10.0.0.0/8;"}},
            {"mail.url", {R"("smtp://h:25")", "smtp://h:25 true"}},
            {"mail.password_file", {"\"PASSWORD\"", "secret"}},
            {"mail.starttls", {R"("off")", "2"}}};
        if (const auto found = particular.find(key); found != particular.end())
            return found->second;
        if (const auto flag = value.value<bool>(); flag && value.is_boolean())
            return {shown(!*flag), shown(!*flag)};
        if (value.is_integer())
            return {"7", key.ends_with("_minutes") ? "420000" : "7"};
        return value.is_array() ? std::pair(R"(["a", "b"])", "a;b;") : std::pair(R"("a@b.c")", "a@b.c");
    }

    TempFolder folder;
};

TEST_F(SettingsTest, EveryKeyOfTheManualHasItsDefaultAndSetsWhatItNamesAndNothingElse) {
    std::stringstream manual;
    manual << std::ifstream(SOURCE_ROOT "/docs/service.md").rdbuf();
    manual.seekg(static_cast<std::streamoff>(manual.str().find("```toml\n") + 8));
    std::size_t number = 0;
    std::string section;
    for (std::string line; std::getline(manual, line) && line != "```";) {
        if (line[0] == '[') {
            section = line + "\n";
            continue;
        }
        const toml::table one = toml::parse(line);
        const std::string name(one.begin()->first.str());
        const std::string key = section.substr(1, section.size() - 3) + "." + name;
        if (key != "database.url" && key != "database.readers" && key != "mail.password_file") {
            EXPECT_EQ(seen(read(section + line)), seen(Settings())) << key;
        }
        // A mail server is not taken without a sender.
        const std::string besides = section + (key == "mail.url" ? "from = \"a@b.c\"\n" : "");
        const auto [value, shown] = other(key, one.begin()->second);
        std::vector<std::string> expected = seen(read(besides));
        ASSERT_LT(number, expected.size());
        EXPECT_NE(expected[number], shown) << key << ": the value tells nothing";
        expected[number++] = shown;
        EXPECT_EQ(seen(read(besides + name + " = " + value)), expected) << key;
    }
    EXPECT_EQ(number, seen(Settings()).size());
}

TEST_F(SettingsTest, WhatIsNoValueIsRefusedByTheNameOfItsKey) {
    for (const auto& [text, named] :
         {std::pair("server.proxies = [\"localhost\"]", "server.proxies"),
          {"server.behind_tls = 1", "server.behind_tls"},
          {"server.hosts = \"a\"", "server.hosts"},
          {"login.attempts = 0", "login.attempts"},
          {"files.downloads = \"7\"", "files.downloads"},
          {"mail.starttls = \"yes\"", "mail.starttls"},
          {"server.nothing = 1", "server.nothing is not known"},
          {"reminders.hour = 24", "reminders.hour"},
          {"reminders.enabled = 1", "reminders.enabled"},
          {"mail.url = \"https://h\"\nmail.from = \"a@b.c\"", "mail.url"},
          {"mail.url = \"smtp://u:secret@h\"\nmail.from = \"a@b.c\"", "mail.url"},
          {"mail.url = \"smtp://h\"\nmail.from = \"a@b.c\"\nmail.username = \"u\"", "mail.username"},
          {"mail.password_file = \"/nonexistent\"", "mail.password_file"},
          {"mail.url = \"smtp://h:25\"", "mail.from"}}) {
        try {
            read(text);
            ADD_FAILURE() << text;
        } catch (const std::invalid_argument& error) {
            EXPECT_NE(std::string(error.what()).find(named), std::string::npos) << error.what();
            EXPECT_EQ(std::string(error.what()).find("secret"), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace disclosure::testing
