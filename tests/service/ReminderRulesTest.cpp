#include <barrier>

#include "tests/service/ReminderTest.h"

namespace disclosure::testing {
namespace {

using ::testing::Test;

TEST(LocalDaysTest, FollowTheZonesClocks) {
    // UTC moments: the clocks of New York go forward on 8 March 2026 at 07:00 UTC and back on 1 November at 06:00 UTC;
    // those of Cairo are put forward at midnight, so that 24 April begins at one o'clock.
    struct Row {
        const char* zone;
        std::int64_t time;
        const char* day;
        int hour;
    };
    constexpr std::int64_t Hour = 3'600'000;
    const auto utc = [](unsigned month, int day, int hour) { return at(month, day, hour + 8); };
    const Row rows[] = {
        {"Asia/Shanghai", utc(11, 20, 15), "2026-11-20", 23},   {"Asia/Shanghai", utc(11, 20, 16), "2026-11-21", 0},
        {"America/New_York", utc(3, 8, 6), "2026-03-08", 1},    {"America/New_York", utc(3, 8, 7), "2026-03-08", 3},
        {"America/New_York", utc(3, 9, 3), "2026-03-08", 23},   {"America/New_York", utc(3, 9, 4), "2026-03-09", 0},
        {"America/New_York", utc(11, 1, 5), "2026-11-01", 1},   {"America/New_York", utc(11, 1, 6), "2026-11-01", 1},
        {"Africa/Cairo", utc(4, 23, 22) - 1, "2026-04-23", 23}, {"Africa/Cairo", utc(4, 23, 22), "2026-04-24", 1},
    };
    for (const Row& row : rows) {
        const LocalDays days(row.zone);
        EXPECT_EQ(isoDay(days.dayOf(row.time)), row.day) << row.zone << row.time;
        EXPECT_EQ(days.hourOf(row.time), row.hour) << row.zone << row.time;
        const std::int64_t start = days.startOf(days.dayOf(row.time));
        EXPECT_EQ(days.dayOf(start), days.dayOf(row.time)) << row.zone << row.time;
        EXPECT_EQ(days.dayOf(start - 1), days.dayOf(row.time) - 1) << row.zone << row.time;
    }
    const LocalDays newYork("America/New_York");
    const auto lengthOf = [&](unsigned month, int day) {
        const std::int64_t number = newYork.dayOf(utc(month, day, 17));
        return (newYork.startOf(number + 1) - newYork.startOf(number)) / Hour;
    };
    EXPECT_EQ(lengthOf(3, 8), 23);
    EXPECT_EQ(lengthOf(11, 1), 25);
    EXPECT_THROW(LocalDays("Asia/Nowhere"), std::invalid_argument);
    EXPECT_THROW(LocalDays("../../etc/passwd"), std::invalid_argument);
}

TEST_F(ReminderTest, BeforeThePlannedDateInItsWindowOnly) {
    // Three days before on 21 November, whatever the time of the planned day.
    const std::pair<std::int64_t, bool> rows[] = {
        {0, false},         {at(11, 20, 23, 59), false}, {at(11, 21), true}, {at(11, 21, 23, 59), true},
        {at(11, 24), true}, {at(11, 24, 23, 59), true},  {at(11, 25), false}};
    int number = 0;
    for (const auto& [plan, due] : rows)
        add(taskFor(std::to_string(number++), plan, 0));
    EXPECT_EQ(remind(), 4 * 3);
    const auto texts = textsOf("chenwei");
    number = 0;
    for (const auto& [plan, due] : rows) {
        const std::string begin = "交底任务“钢筋" + std::to_string(number++) + "”";
        const auto named =
            std::count_if(texts.begin(), texts.end(), [&](auto& text) { return text.starts_with(begin); });
        EXPECT_EQ(named, due ? 1 : 0) << begin;
    }
    EXPECT_EQ(texts.back(), "交底任务“钢筋2”计划于2026年11月21日交底，请及时处理");
}

TEST_F(ReminderTest, OverdueFromTheDeadlineOnUntilDisclosed) {
    add(taskFor("a", 0, at(11, 20)));  // in time until the end of the 20th
    add(taskFor("b", 0, at(11, 20, 13)));
    EXPECT_EQ(remindAt(at(11, 20, 23)), 0);
    EXPECT_EQ(remindAt(at(11, 21, 9)), 3);
    EXPECT_EQ(textsOf("liuyang").at(0), "交底任务“钢筋a”已于2026年11月20日到期，尚未完成交底");
    EXPECT_EQ(remindAt(at(11, 21, 13)), 3) << "its deadline came after the day's run";
    EXPECT_EQ(remindAt(at(11, 21, 23)), 0);
    alter("a", [](Task& task) {
        task.confirmedAt = 1;
        for (TaskReceiver& receiver : task.receivers)
            receiver.confirmedAt = 1;
    });
    remove("b");
    EXPECT_EQ(remindAt(at(11, 22, 9)), 0) << "disclosed, and deleted";
}

TEST_F(ReminderTest, OnceOrOnceADay) {
    struct Row {
        std::int32_t advance, overdue;
        std::size_t reminders;
    };
    // The planned day is 24 November, the last day in time the 25th; what is overdue stays so until the 30th.
    for (const Row& row : {Row{1, 1, 2}, Row{2, 1, 5}, Row{1, 2, 6}, Row{2, 2, 9}, Row{0, 0, 0}, Row{0, 2, 5}}) {
        configure(row.advance, row.overdue);
        const std::string id = std::to_string(row.advance) + std::to_string(row.overdue);
        add(taskFor(id, at(11, 24, 10), at(11, 25)));
        const std::size_t before = countOf("zhoujie");
        for (int hour = 0; hour < 10 * 24; hour += 5)
            remindAt(at(11, 21, hour));
        EXPECT_EQ(countOf("zhoujie") - before, row.reminders) << id;
        remove(id);
    }
}

TEST_F(ReminderTest, NotBeforeTheHour) {
    add(taskFor("a", at(11, 21), at(11, 1)));
    EXPECT_EQ(remindAt(at(11, 21, 7, 59)), 0);
    alter("a", [](Task& task) { task.remark = "改"; });
    EXPECT_EQ(remindAt(at(11, 21, 7, 59)), 0);
    EXPECT_EQ(remindAt(at(11, 21, 8)), 6);
}

TEST_F(ReminderTest, OnlyThoseItWaitsForWhoMayOpenIt) {
    const auto add = [&](const std::string& id, auto&& change) {
        Task task = taskFor(id, at(11, 22), 0);
        change(task);
        this->add(task);
    };
    add("confirmed", [](Task& task) { task.receivers[0].confirmedAt = 1; });
    EXPECT_EQ(remind(), 2) << "not liuyang";
    add("done", [](Task& task) { task.confirmedAt = 1; });
    EXPECT_EQ(remind(), 2) << "not chenwei";
    add("plan", [](Task& task) { task.published = false; });
    EXPECT_EQ(remind(), 2) << "not zhoujie, who belongs to another department";
    add("outside", [](Task& task) {
        task.published = false;
        task.discloser = "zhoujie";
        task.receivers.clear();
    });
    EXPECT_EQ(remind(), 1) << "whoever discloses may open it";
    add("both", [](Task& task) { task.receivers[0].username = "chenwei"; });
    EXPECT_EQ(remind(), 2) << "once each";
    soci::session(soci::sqlite3, "dbname=" + file) << "DELETE FROM member WHERE username IN ('liuyang', 'zhoujie')";
    add("left", [](Task&) {});
    EXPECT_EQ(remind(), 1) << "the others have left the organisation";
    EXPECT_EQ(countOf("liuyang"), 2U);
    EXPECT_EQ(countOf("zhoujie"), 4U);
}

TEST_F(ReminderTest, WhatIsChangedAfterTheDaysRunIsRemindedOfTheSameDay) {
    configure(1, 1);
    add(taskFor("a", at(11, 22), 0));
    EXPECT_EQ(remind(), 3);
    alter("a", [](Task& task) { task.planDisclosure = at(11, 22, 15); });
    EXPECT_EQ(remind(), 0) << "the same day";
    alter("a", [](Task& task) { task.planDisclosure = at(11, 21); });
    EXPECT_EQ(remind(), 3) << "another day reminds anew";
    alter("a", [](Task& task) { task.expiry = at(11, 19); });
    EXPECT_EQ(remind(), 3) << "overdue by an earlier date";
    alter("a", [](Task& task) { task.receivers[0].username = "sunli"; });
    EXPECT_EQ(remind(), 2) << "a new receiver: both kinds";
    EXPECT_EQ(countOf("sunli"), 2U);

    alter("a", [](Task& task) {
        task.published = false;
        task.expiry = at(11, 18);
    });
    EXPECT_EQ(remind(), 2) << "no longer published: not zhoujie, who belongs to another department";
    alter("a", [](Task& task) { task.published = true; });
    EXPECT_EQ(remind(), 1);
    add(taskFor("overdue", 0, at(11, 1)));
    EXPECT_EQ(remind(), 3) << "overdue when it came, behind the day's run";
    remove("overdue");

    add(taskFor("late", at(11, 25), 0));
    EXPECT_EQ(remind(), 0);
    PushConfig further = configOf(1, 1);
    further.daysAdvance = 4;
    store->putPushConfig(further);
    EXPECT_EQ(remind(), 3) << "the settings reach further";
    configure(2, 1);
    EXPECT_EQ(remind(), 3) << "from now on every day: a, not the one that is too far away again";

    for (const auto& [advance, overdue] : {std::pair{0, 1}, std::pair{0, 0}, std::pair{0, 1}}) {
        configure(advance, overdue);
        alter("late", [](Task& task) { task.planDisclosure -= Day; });
        EXPECT_EQ(remind(), 0) << "off";
        configure(1, 1);
        EXPECT_EQ(remind(), 3) << "on again the same day";
    }
}

TEST_F(ReminderTest, AClockThatJumpsRemindsOfNothingTwiceAndMakesUpForNothing) {
    add(taskFor("a", at(11, 24, 12), at(12, 25)));
    EXPECT_EQ(remindAt(at(11, 22, 18)), 3);
    EXPECT_EQ(remindAt(at(11, 22, 9)), 0) << "back within the day";
    EXPECT_EQ(remindAt(at(11, 21, 9)), 3) << "back over days: the 21st had none yet";
    EXPECT_EQ(remindAt(at(11, 22, 19)), 0);
    EXPECT_EQ(remindAt(at(11, 24, 9)), 3) << "forward: the 23rd is not made up for";
    EXPECT_EQ(remindAt(at(11, 24, 9) + 100 * 365 * Day), 3) << "far too far: overdue";
    EXPECT_EQ(remindAt(at(11, 24, 10)), 0);
    add(taskFor("behind", at(11, 23, 9), 0));
    EXPECT_EQ(remindAt(at(11, 25, 10)), 0) << "a day ahead, where nothing is due";
    alter("behind", [](Task& task) { task.planDisclosure = at(11, 24, 9); });
    EXPECT_EQ(remindAt(at(11, 25, 11)), 0);
    EXPECT_EQ(remindAt(at(11, 24, 10)), 3) << "what changed meanwhile";
    add(taskFor("b", 0, at(11, 23, 12)));
    EXPECT_EQ(remindAt(at(11, 24, 11)), 0);
    EXPECT_EQ(remindAt(at(11, 24, 12)), 3) << "the wrong future hides nothing";
    EXPECT_EQ(remindAt(at(11, 24, 18)), 0);
    add(taskFor("c", 0, at(11, 23, 14)));
    EXPECT_EQ(remindAt(at(11, 24, 13)), 0) << "back before its deadline";
    EXPECT_EQ(remindAt(at(11, 24, 14)), 3);
}

TEST_F(ReminderTest, SeveralSchedulersShareTheWork) {
    constexpr int Tasks = 700;
    {
        Transaction transaction(*store, IStore::Access::Write);
        for (int i = 0; i < Tasks; ++i)
            add(taskFor(std::to_string(i), at(11, 21 + i % 4, i % 24), i % 2 ? at(11, 1) : 0));
        transaction.commit();
    }
    std::atomic<std::int64_t> made{0};
    std::atomic<int> busy{0};
    std::barrier pieces(3);  // none takes a second piece before each has had its turn
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i)
        threads.emplace_back([&] {
            SqliteDatabase own(file);  // with a queue of its own, as another process has
            const auto connection = own.connect();
            const auto mine = rules.run(*connection, [&] {
                pieces.arrive_and_wait();
                return true;
            });
            pieces.arrive_and_drop();
            made += mine;
            busy += mine > 0 ? 1 : 0;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(made, Tasks * 3 + Tasks / 2 * 3);
    EXPECT_EQ(countOf("liuyang"), 1000U) << "the largest page of this test";
    EXPECT_EQ(store->unreadMessages("liuyang"), Tasks + Tasks / 2);
    EXPECT_EQ(busy, 3);
    EXPECT_EQ(remind(), 0);
}

TEST_F(ReminderTest, ALargeDepartmentDoesNotKeepTheOthersWaiting) {
    {
        Transaction transaction(*store, IStore::Access::Write);
        for (int i = 0; i < 3000; ++i) {
            Task task = taskFor(std::to_string(i), at(11, 22), 0);
            task.receivers.clear();
            add(task);
        }
        Task other = taskFor("other", at(11, 22), 0);
        other.deptId = SecondDept;
        store->addCatalog({SecondDept, other.catalogId, "全部", ""});
        store->addTask(other);
        PushConfig config = configOf(2, 2);
        config.deptId = SecondDept;
        store->putPushConfig(config);
        transaction.commit();
    }
    // A third of the large one's work, at a hundred tasks each.
    const std::int64_t made = rules.run(*store, [left = 30]() mutable { return --left > 0; });
    EXPECT_LT(made, 3000);
    EXPECT_EQ(countOf("zhoujie"), 1U);
    EXPECT_EQ(made + remind(), 3000 + 3);
}

TEST_F(ReminderTest, ATaskThatCannotBeRemindedOfHoldsUpNoOther) {
    soci::session(soci::sqlite3, "dbname=" + file)
        << "CREATE TRIGGER bad BEFORE INSERT ON message WHEN new.task_id = 'bad' BEGIN SELECT RAISE(ABORT, 'bad'); END";
    for (const char* id : {"a", "bad", "c"})
        add(taskFor(id, at(11, 22), 0));
    EXPECT_EQ(remind(), 6);
    for (const char* id : {"bad", "c"})
        alter(id, [](Task& task) {
            task.receivers[0].username = "sunli";
            task.expiry = at(11, 19);
        });
    EXPECT_EQ(remind(), 4) << "overdue, and another receiver";
    EXPECT_EQ(countOf("sunli"), 2U);
}

TEST_F(ReminderTest, ADepartmentThatFailsHoldsUpNoOther) {
    PushConfig config = configOf(1, 1);
    config.deptId = SecondDept;
    store->putPushConfig(config);
    store->addCatalog({SecondDept, "demo-catalog-4", "全部", ""});
    Task task = taskFor("other", at(11, 22), 0);
    add(task);
    task.deptId = SecondDept;
    add(task);
    soci::session(soci::sqlite3, "dbname=" + file)
        << "CREATE TRIGGER bad BEFORE INSERT ON reminder_run WHEN new.dept_id = 'demo-dept-1' BEGIN SELECT "
           "RAISE(ABORT, 'bad'); END";
    EXPECT_EQ(remind(), 3);
    EXPECT_EQ(number("SELECT COUNT(*) FROM message WHERE dept_id = 'demo-dept-2'"), 3);
}

TEST_F(ReminderTest, WhatIsOverdueIsNotReadAgainOnAnotherDay) {
    configure(0, 1);
    add(taskFor("a", 0, at(11, 1)));
    EXPECT_EQ(remind(), 3);
    const auto run = number("SELECT day FROM reminder_run");
    EXPECT_EQ(remindAt(at(11, 22, 9)), 0);
    EXPECT_EQ(number("SELECT day FROM reminder_run"), run);
    add(taskFor("b", 0, at(11, 22)));
    EXPECT_EQ(remindAt(at(11, 23, 9)), 3) << "overdue since";
}

TEST_F(ReminderTest, OldMessagesGoAndAreNotMadeAgain) {
    configure(0, 1);
    add(taskFor("a", 0, at(1, 1)));
    add(taskFor("b", 0, at(1, 1)));
    EXPECT_EQ(remindAt(at(1, 10, 9)), 6);
    remove("b");
    now = at(1, 10 + settings.keepDays, 9);
    rules.tidy(*store, always);
    EXPECT_EQ(countOf("chenwei"), 2U);
    now = at(1, 11 + settings.keepDays, 9);
    rules.tidy(*store, always);
    EXPECT_EQ(countOf("chenwei"), 0U);
    EXPECT_EQ(remind(), 0) << "once is once";
    EXPECT_EQ(number("SELECT COUNT(*) FROM reminder"), 3) << "what is gone needs no note";
    soci::session other(soci::sqlite3, "dbname=" + file);
    other << "BEGIN IMMEDIATE";
    EXPECT_NO_THROW(rules.tidy(*store, always)) << "who has nothing to do minds no writer";
}

}  // namespace
}  // namespace disclosure::testing
