#include <gtest/gtest.h>

#include "commands/DisclosureManage/ui/task/DateRange.h"

using Choice = DateRangeChoice;

TEST(DateRanges, HaveTheseBounds) {
    struct Case {
        Choice choice;
        QDate today;
        QDate start;
        QDate end;
    };
    const QDate leapDay(2024, 2, 29);  // a Thursday
    const Case cases[] = {
        {Choice::All, leapDay, {}, {}},                                      // no bounds
        {Choice::ThisMonth, leapDay, {2024, 2, 1}, {2024, 2, 29}},           // leap month
        {Choice::NextMonth, {2023, 1, 31}, {2023, 2, 1}, {2023, 2, 28}},     // short month
        {Choice::NextMonth, {2024, 12, 31}, {2025, 1, 1}, {2025, 1, 31}},    // next month, next year
        {Choice::LastMonth, {2024, 1, 31}, {2023, 12, 1}, {2023, 12, 31}},   // last month, last year
        {Choice::LastMonth, {2024, 3, 31}, {2024, 2, 1}, {2024, 2, 29}},     // last month, leap
        {Choice::ThisWeek, leapDay, {2024, 2, 26}, {2024, 3, 3}},            // week
        {Choice::ThisWeek, {2024, 3, 3}, {2024, 2, 26}, {2024, 3, 3}},       // week of a Sunday
        {Choice::ThisWeek, {2025, 1, 1}, {2024, 12, 30}, {2025, 1, 5}},      // week over new year
        {Choice::NextWeek, leapDay, {2024, 3, 4}, {2024, 3, 10}},            // next week
        {Choice::LastWeek, {2025, 1, 1}, {2024, 12, 23}, {2024, 12, 29}},    // last week
        {Choice::Today, leapDay, leapDay, leapDay},                          // today
        {Choice::Tomorrow, {2024, 12, 31}, {2025, 1, 1}, {2025, 1, 1}},      // tomorrow
        {Choice::ThisQuarter, {2024, 7, 1}, {2024, 7, 1}, {2024, 9, 30}},    // first day of a quarter
        {Choice::NextQuarter, {2024, 11, 30}, {2025, 1, 1}, {2025, 3, 31}},  // next quarter, next year
        {Choice::LastQuarter, leapDay, {2023, 10, 1}, {2023, 12, 31}},       // last quarter, last year
        {Choice::NextYear, leapDay, {2025, 1, 1}, {2025, 12, 31}},           // next year from a leap day
        {Choice::LastYear, leapDay, {2023, 1, 1}, {2023, 12, 31}},           // last year from a leap day
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        const DateRange range = RangeOf(c.choice, c.today);
        EXPECT_EQ(range.start, c.start) << range.start.toString(Qt::ISODate).toStdString();
        EXPECT_EQ(range.end, c.end) << range.end.toString(Qt::ISODate).toStdString();
    }
}

TEST(DateRanges, StandInTheOrderOfTheirNumbers) {
    const QStringList texts = DateRangeChoices();
    ASSERT_EQ(texts.size(), 16);
    EXPECT_EQ(texts[static_cast<int>(Choice::All)], "全部");
    EXPECT_EQ(texts[static_cast<int>(Choice::LastWeek)], "上周");
    EXPECT_EQ(texts[static_cast<int>(Choice::Custom)], "自定义");
}
