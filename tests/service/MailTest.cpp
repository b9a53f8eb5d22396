#include <gmock/gmock.h>

#include "service/mail/Outbox.h"
#include "service/mail/SmtpSender.h"
#include "tests/service/ReminderTest.h"
#include "tests/service/ServedProgram.h"

namespace disclosure::testing {
namespace {

using Outcome = IMailSender::Outcome;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t Minute = 60'000;

/// Keeps what it is given and answers what the test says.
class FakeSender : public IMailSender {
public:
    const std::string& from() const override { return m_from; }
    Result send(const std::string& to, const std::string& text) override {
        const auto begin = text.find("Message-ID: ");
        ids.push_back(text.substr(begin, text.find('\r', begin) - begin));
        receivers.push_back(to);
        return {answer(to), "as the test says"};
    }
    std::vector<std::string> taken() { return std::exchange(receivers, {}); }

    std::function<Outcome(const std::string&)> answer = [](const std::string&) { return Outcome::Sent; };
    std::vector<std::string> receivers;
    std::vector<std::string> ids;

private:
    std::string m_from = "disclosure@demo.example";
};

/// Reminders with mails, as they come out of the outbox.
class MailTest : public ReminderTest {
protected:
    MailTest() { configure(1, 0); }
    static ReminderSettings withMail() {
        ReminderSettings settings;
        settings.mail = true;
        return settings;
    }
    /// A task that only these wait for.
    void remindOf(const std::string& id, const std::vector<std::string>& people) {
        Task task = taskFor(id, at(11, 22), 0);
        task.confirmedAt = 1;
        task.receivers.clear();
        for (const std::string& person : people)
            task.receivers.push_back({person, person, 0, "", ""});
        store->addTask(task);
        Reminders(withMail(), [this] { return now.load(); }).run(*store, always);
    }
    std::int64_t send(IMailSender& to) { return outbox.run(*store, to, always); }
    std::vector<std::string> sentAt(std::int64_t time) {
        now = time;
        send(sender);
        return sender.taken();
    }

    Outbox outbox{rules, [this] { return now.load(); }};
    FakeSender sender;
};

TEST_F(MailTest, IsSentOnceAndNotWhereItIsNoLongerNeeded) {
    for (const char* id : {"due", "disclosed", "deleted", "confirmed", "plan", "addressless", "moved"})
        remindOf(id, {"zhoujie"});
    remindOf("nobody's", {"sunli"});
    alter("disclosed", [](Task& task) { task.receivers[0].confirmedAt = 1; });
    alter("confirmed", [](Task& task) {
        task.receivers[0].confirmedAt = 1;
        task.confirmedAt = 0;
    });
    alter("plan", [](Task& task) { task.published = false; });
    alter("moved", [](Task& task) { task.planDisclosure += Day; });
    remove("deleted");
    Person sunli = store->person("sunli").value();
    sunli.mail.clear();
    store->putPerson(sunli);
    remove("addressless");
    EXPECT_EQ(send(sender), 1);
    EXPECT_THAT(sender.taken(), ElementsAre("zhoujie@demo.example"));
    remindOf("off", {"zhoujie"});
    configure(0, 1);
    EXPECT_EQ(send(sender), 0);
    EXPECT_THAT(store->dueMails(now + 2 * Day, 0, 100), IsEmpty());
}

TEST_F(MailTest, IsLeftToWhoeverHasTakenItInHandMeanwhile) {
    remindOf("first", {"zhoujie"});
    remindOf("second", {"zhoujie"});
    FakeSender other;
    sender.answer = [&](const std::string&) {
        now += Outbox::Lease;  // so slow that the other one takes both
        send(other);
        return Outcome::Failed;
    };
    EXPECT_EQ(send(sender), 0);
    EXPECT_EQ(sender.ids.size(), 1U);
    EXPECT_EQ(other.ids.size(), 2U);
    EXPECT_THAT(store->dueMails(now + Day, 0, 100), IsEmpty());
}

TEST_F(MailTest, IsDroppedWhenItsTaskIsDisclosedWhileItIsInHand) {
    remindOf("first", {"zhoujie"});
    remindOf("second", {"zhoujie"});
    sender.answer = [this](const std::string&) {
        for (const char* id : {"first", "second"})
            alter(id, [](Task& task) { task.receivers[0].confirmedAt = 1; });
        return Outcome::Sent;
    };
    EXPECT_EQ(sentAt(now).size(), 1U);
    EXPECT_THAT(store->dueMails(now + Day, 0, 100), IsEmpty());
}

TEST_F(MailTest, WhatFailsIsTriedLaterAndLaterForADay) {
    remindOf("a", {"zhoujie"});
    sender.answer = [](const std::string&) { return Outcome::Failed; };
    const std::int64_t begin = now;
    std::vector<std::int64_t> tries;
    for (std::int64_t minute = 0; minute < 3 * 24 * 60; ++minute) {
        if (!sentAt(begin + minute * Minute).empty())
            tries.push_back(minute);
    }
    EXPECT_THAT(tries, ElementsAre(0, 1, 6, 36, 156, 276, 396, 516, 636, 756, 876, 996, 1116, 1236, 1356));
}

TEST_F(MailTest, ARefusedOneIsGivenUpAndADeadServerIsAskedOnce) {
    remindOf("a", {"chenwei", "liuyang", "zhoujie"});
    sender.answer = [](const std::string&) { return Outcome::Unreachable; };
    EXPECT_EQ(sentAt(now).size(), 1U);
    sender.answer = [](const std::string& to) { return to.starts_with("liuyang") ? Outcome::Refused : Outcome::Sent; };
    EXPECT_THAT(sentAt(now), IsEmpty()) << "not before a minute";
    EXPECT_EQ(sentAt(now + Minute).size(), 3U);
    EXPECT_THAT(sentAt(now + Day), IsEmpty());
}

TEST_F(MailTest, AKilledSendersMailsAreSentAgainUnderTheSameId) {
    remindOf("a", {"zhoujie"});
    const auto killed = [](const std::string&) -> Outcome { throw std::runtime_error("killed"); };
    sender.answer = killed;
    EXPECT_THROW(send(sender), std::runtime_error);
    sender.taken();
    sender.answer = [](const std::string&) { return Outcome::Sent; };
    EXPECT_THAT(sentAt(now + Outbox::Lease - 1), IsEmpty()) << "it might be alive";
    EXPECT_EQ(sentAt(now + 1).size(), 1U);
    ASSERT_EQ(sender.ids.size(), 2U);
    EXPECT_EQ(sender.ids[0], sender.ids[1]);
    EXPECT_EQ(sender.ids[0].size(), std::string("Message-ID: <@demo.example>").size() + 32);

    remindOf("b", {"zhoujie"});
    sender.answer = killed;
    EXPECT_THROW(send(sender), std::runtime_error);
    sender.taken();
    sender.answer = [](const std::string&) { return Outcome::Sent; };
    EXPECT_EQ(sentAt(now - 3 * 60 * Minute).size(), 1U) << "a clock that goes back holds nothing up";
    EXPECT_NE(sender.ids[2], sender.ids[1]);
}

TEST_F(MailTest, SeveralSendersShareTheWork) {
    for (int i = 0; i < 20; ++i)
        remindOf(std::to_string(i), {"chenwei", "liuyang", "zhoujie", "sunli", "editor", "reader"});
    std::vector<FakeSender> senders(3);
    std::vector<std::thread> threads;
    for (FakeSender& one : senders)
        threads.emplace_back([&] {
            SqliteDatabase own(file);
            outbox.run(*own.connect(), one, always);
        });
    for (std::thread& thread : threads)
        thread.join();
    std::set<std::string> ids;
    std::size_t sent = 0;
    for (const FakeSender& one : senders) {
        ids.insert(one.ids.begin(), one.ids.end());
        sent += one.ids.size();
    }
    EXPECT_EQ(sent, 120U);
    EXPECT_EQ(ids.size(), 120U);
}

/// A real mail server, and the sender that talks to it.
class SmtpTest : public MailTest {
protected:
    void startServer(const std::vector<std::string>& more = {}) {
        server.emplace(folder, more);
        mail.url = "smtp://127.0.0.1:" + std::to_string(server->port());
    }
    std::int64_t sendNow() {
        SmtpSender real(mail, [] { return false; });
        return send(real);
    }
    std::vector<rapidjson::Document> delivered() const { return MailServer::delivered(folder); }

    std::optional<MailServer> server;
    MailSettings mail{"", "disclosure@demo.example", "", "", MailSettings::StartTls::Off};
};

TEST_F(SmtpTest, WhatArrivesIsWhatWasMeant) {
    startServer();
    const std::string nasty = "钢筋\r\nBcc: evil@demo.example\r\n\r\n.\r\nRCPT TO:<evil@demo.example>";
    Task task = taskFor("a", at(11, 22), 0);
    task.receivers.erase(task.receivers.begin());
    task.name = nasty;
    add(task);
    remindOf("b", {"sunli"});
    alter("b", [&](Task& changed) { changed.name.clear(); });
    EXPECT_EQ(sendNow(), 3);
    const auto mails = delivered();
    ASSERT_EQ(mails.size(), 3U);
    std::set<std::string> receivers;
    for (const auto& one : mails) {
        EXPECT_EQ(one["connection"].GetInt(), 1) << "one after the other on the same";
        ASSERT_EQ(one["to"].Size(), 1U);
        receivers.insert(one["to"][0].GetString());
        EXPECT_STREQ(one["from"].GetString(), "disclosure@demo.example");
        EXPECT_TRUE(one["ascii"].GetBool());
        EXPECT_LE(one["longest"].GetInt(), 78);
        std::set<std::string> names;
        for (const auto& name : one["names"].GetArray())
            EXPECT_TRUE(names.insert(name.GetString()).second) << name.GetString();
        EXPECT_EQ(names, (std::set<std::string>{"date", "from", "to", "subject", "message-id", "mime-version",
                                                "content-type", "content-transfer-encoding", "auto-submitted"}));
        EXPECT_STREQ(one["headers"]["date"].GetString(), "Sat, 21 Nov 2026 01:00:00 +0000");
        const bool isNasty = std::string(one["to"][0].GetString()) != "sunli@demo.example";
        const std::string name = isNasty ? nasty : "钢筋b";
        EXPECT_EQ(one["text"].GetString(), "交底任务“" + name + "”计划于2026年11月22日交底，请及时处理\r\n");
        EXPECT_EQ(
            one["headers"]["subject"].GetString(),
            "技术交底提醒：" + (isNasty ? "钢筋  Bcc: evil@demo.example    .  RCPT TO:<evil@demo.example>" : name));
    }
    EXPECT_EQ(receivers, (std::set<std::string>{"chenwei@demo.example", "zhoujie@demo.example", "sunli@demo.example"}));
}

TEST_F(SmtpTest, AServerThatIsDownOrTakesNoMailsGetsThemLaterAndARefusedReceiverIsGivenUp) {
    const std::vector<std::string> refusing{"--refuse", "liuyang@demo.example"};
    startServer(refusing);
    server.reset();
    remindOf("a", {"chenwei", "liuyang", "zhoujie"});
    EXPECT_EQ(sendNow(), 0);
    startServer({"--greeting", "554 not now"});
    EXPECT_EQ(sendNow(), 0) << "not before a minute";
    now += Minute;
    EXPECT_EQ(sendNow(), 0);
    startServer({"--password", "right words"});
    now += 5 * Minute;
    EXPECT_EQ(sendNow(), 0) << "530";
    startServer(refusing);
    now += 30 * Minute;
    EXPECT_EQ(sendNow(), 2);
    EXPECT_EQ(delivered().size(), 2U);
    EXPECT_THAT(store->dueMails(now + 2 * Day, 0, 10), IsEmpty());
}

TEST_F(SmtpTest, AnEndDoesNotBreakOffWhatTheServerHas) {
    startServer({"--scan-seconds", "2"});
    remindOf("a", {"zhoujie"});
    SmtpSender real(mail, [this] { return !delivered().empty(); });
    EXPECT_EQ(send(real), 1);
}

TEST_F(SmtpTest, LogsInAndInsistsOnEncryption) {
    startServer({"--password", "right words"});
    remindOf("a", {"chenwei"});
    mail.username = "sender";
    const auto tryWith = [&](const std::string& password, MailSettings::StartTls startTls) {
        mail.password = password;
        mail.startTls = startTls;
        now += 5 * Minute;
        return sendNow();
    };
    EXPECT_EQ(tryWith("wrong", MailSettings::StartTls::Off), 0);
    EXPECT_EQ(tryWith("right words", MailSettings::StartTls::Required), 0) << "the server knows no TLS";
    EXPECT_THAT(delivered(), IsEmpty());
    now += 30 * Minute;
    EXPECT_EQ(tryWith("right words", MailSettings::StartTls::Optional), 1);
}

}  // namespace
}  // namespace disclosure::testing
