#include <random>

#include "tests/service/ReminderTest.h"
#include "tests/service/ServedProgram.h"

namespace disclosure::testing {
namespace {

/// The real program, reminding every second at any hour, with a real mail server beside it.
class ReminderProcess : public ReminderTest {
protected:
    ReminderProcess() : smtp(folder, {"--password", "right words"}) {
        std::ofstream(folder.file("password")) << "right words\n";
        std::ofstream(folder.file("config.toml"))
            << "[reminders]\ninterval_seconds = 1\nhour = 0\ntime_zone = \"UTC\"\n[mail]\nurl = \"smtp://127.0.0.1:"
            << smtp.port() << "\"\nfrom = \"disclosure@demo.example\"\nusername = \"sender\"\npassword_file = \""
            << folder.file("password") << "\"\nstarttls = \"off\"\n";
        configure(0, 1);
    }
    /// Overdue tasks for three people each; of every fifth one has an address.
    void addOverdue(long long tasks) {
        Transaction transaction(*store, IStore::Access::Write);
        for (long long i = 0; i < tasks; ++i) {
            Task task = taskFor(std::to_string(i), 0, at(1, 1));
            task.receivers[1].username = i % 5 == 0 ? "zhoujie" : "sunli";
            add(task);
        }
        for (const char* person : {"chenwei", "liuyang", "sunli"}) {
            Person addressless = store->person(person).value();
            addressless.mail.clear();
            store->putPerson(addressless);
        }
        transaction.commit();
    }
    /// Waits until the query's number is at least `enough`; gives up after 20 s.
    bool reaches(const std::string& query, long long enough) {
        soci::session sql(soci::sqlite3, "dbname=" + file);
        long long value = 0;
        for (int i = 0; i < 20'000; ++i) {
            sql << query, soci::into(value);
            if (value >= enough)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return false;
    }
    Served serve() { return {folder, "sqlite:" + file, {"--config", folder.file("config.toml")}}; }

    MailServer smtp;
};

TEST_F(ReminderProcess, KilledAgainAndAgainItRemindsEachPersonOnceAndForgetsNobody) {
    constexpr int Rounds = 30;
    constexpr long long Tasks = 2000;
    addOverdue(Tasks);
    const std::string messages = "SELECT COUNT(*) FROM message";
    std::mt19937 random(20261121);
    for (int round = 0; round < Rounds; ++round) {
        const Served served = serve();
        // Not always between two pieces of work: the next one is under way soon after the last is seen.
        const long long enough = number(messages) + 1 + static_cast<long long>(random() % 200);
        ASSERT_TRUE(reaches(messages, std::min(enough, Tasks * 3)));
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 5000));
        ASSERT_EQ(number("SELECT COUNT(*) FROM (SELECT 1 FROM message GROUP BY task_id, username, kind HAVING COUNT(*) "
                         "> 1)"),
                  0);
    }
    // What a killed process had in hand waits for its lease to end; here it is over at once.
    soci::session(soci::sqlite3, "dbname=" + file) << "UPDATE mail SET wake_at = 0, claimed_at = 0";
    const Served served = serve();
    ASSERT_TRUE(reaches(messages, Tasks * 3));
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));  // another turn, which must not add any
    EXPECT_EQ(number(messages), Tasks * 3);
    EXPECT_EQ(number("SELECT COUNT(*) FROM (SELECT DISTINCT task_id, username FROM message)"), Tasks * 3);
    EXPECT_EQ(number("SELECT COUNT(*) FROM reminder"), Tasks * 3);
    EXPECT_TRUE(reaches("SELECT COUNT(*) = 0 FROM mail", 1));
    std::set<std::string> ids;  // a mail in hand at a kill may come twice, under its id
    for (const auto& one : MailServer::delivered(folder))
        ids.insert(one["headers"]["message-id"].GetString());
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(Tasks / 5));
}

TEST_F(ReminderProcess, MailsGoToTheAddressThatTheCommandLineSets) {
    add(taskFor("a", 0, at(1, 1)));
    const auto set = [&](const std::string& arguments) {
        const std::string line =
            "'" + Program + "' --database 'sqlite:" + file + "' user mail " + arguments + " > /dev/null 2>&1";
        return std::system(line.c_str()) == 0;
    };
    EXPECT_TRUE(set("chenwei ''"));
    EXPECT_TRUE(set("liuyang liu.yang@site.example"));
    EXPECT_FALSE(set("nobody a@site.example"));
    for (const char* wrong : {"a", "@site.example", "a@", "'a@b c.example'", "'a@b.example\nBcc: x@b.example'",
                              "a..b@site.example", "a@b@site.example", "'刘@site.example'"})
        EXPECT_FALSE(set(std::string("zhoujie ") + wrong)) << wrong;
    const Served served = serve();
    EXPECT_TRUE(reaches("SELECT COUNT(*) FROM message", 3));
    EXPECT_TRUE(reaches("SELECT COUNT(*) = 0 FROM mail", 1));
    std::set<std::string> receivers;
    for (const auto& one : MailServer::delivered(folder))
        receivers.insert(one["to"][0].GetString());
    EXPECT_EQ(receivers, (std::set<std::string>{"liu.yang@site.example", "zhoujie@demo.example"}));
}

}  // namespace
}  // namespace disclosure::testing
