#include <cstdlib>
#include <ctime>
#include <fstream>
#include <gtest/gtest.h>
#include <utility>

#include "sdk/basetools/File.h"
#include "sdk/basetools/FileNameCheck.h"
#include "sdk/basetools/TextConversion.h"
#include "sdk/basetools/TimeValue.h"

namespace {

using namespace BASETOOLS;

TEST(FileNameCheck, RefusesExactlyTheNineCharacters) {
    for (const wchar_t c : std::wstring(L"\\/:*?\"<>|"))
        EXPECT_TRUE(CFileNameCheck::HasForbiddenCharacter(std::wstring(L"目录") + c));
    for (const wchar_t* name : {L"", L"交底 2024-01_(1)", L"a.b", L"【一】；、", L"'`~!@#$%^&+=;,"})
        EXPECT_FALSE(CFileNameCheck::HasForbiddenCharacter(name)) << ToUtf8(name);
}

TEST(File, ReadsExtensionAndSizeThroughEitherSlash) {
    EXPECT_EQ(GetFileExtion(L"C:\\图纸\\a.b\\REPORT.PDF"), L"PDF");
    EXPECT_EQ(GetFileExtion(L"/tmp/a.b/report"), L"");
    EXPECT_EQ(GetFileExtion(L"x.tar.gz"), L"gz");

    const std::string path = testing::TempDir() + "五字节.bin";
    std::ofstream(path) << "12345";
    EXPECT_EQ(GetFileSize(ToWide(path)), 5);
    std::remove(path.c_str());
    EXPECT_EQ(GetFileSize(ToWide(path)), -1);
    EXPECT_EQ(GetFileSize(ToWide(testing::TempDir())), -1);
}

/// Days are the user's: each case holds in every zone, also where the clocks change.
TEST(TimeValue, ADayStartsAndEndsWithTheUsersClock) {
    constexpr int64_t kUtcMidnight = 1767225600000;
    const auto use = [](const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    };
    const std::pair<const char*, int64_t> zones[] = {
        {"UTC", 0}, {"Asia/Shanghai", 8}, {"Europe/Berlin", 1}, {"America/New_York", -5}};
    for (const auto& [zone, hoursEast] : zones) {
        SCOPED_TRACE(zone);
        use(zone);
        EXPECT_EQ(CKpxTimeValue::FromDayText(L"2026-01-01"), kUtcMidnight - hoursEast * 3600000);
        for (const wchar_t* day : {L"2024-02-29", L"2024-03-31", L"2024-10-27", L"2026-01-01"}) {
            const int64_t start = CKpxTimeValue::FromDayText(day);
            const int64_t end = CKpxTimeValue::EndOfDay(start);
            for (const int64_t inside : {start, end}) {
                EXPECT_EQ(CKpxTimeValue::ToDayText(inside), day);
                EXPECT_EQ(CKpxTimeValue::StartOfDay(inside), start);
            }
            EXPECT_NE(CKpxTimeValue::ToDayText(start - 1), day);
            EXPECT_NE(CKpxTimeValue::ToDayText(end + 1), day);
        }
    }
    use("UTC");
}

TEST(TimeValue, WhatIsNoDayIsNotSet) {
    EXPECT_EQ(CKpxTimeValue::ToDayText(0), L"");
    for (const wchar_t* text : {L"", L"2023-02-29", L"2024-2-9", L"今天"})
        EXPECT_EQ(CKpxTimeValue::FromDayText(text), 0) << ToUtf8(text);
}

TEST(TimeValue, TheTotalTimeReachesFrom1970ToTheLastFourDigitYear) {
    double start = 0;
    double end = 0;
    CKpxTimeValue::GetTotalTimeDefine(start, end);
    EXPECT_EQ(CKpxTimeValue::OleDateToSeconds(start), 0);
    EXPECT_EQ(CKpxTimeValue::OleDateToSeconds(end), 253402300799);
    EXPECT_EQ(CKpxTimeValue::OleDateToSeconds(45292.5), 1704110400);  // 2024-01-01 12:00
}

TEST(TextConversion, KeepsWhatLiesBeyondTheBasicPlaneAndMarksBrokenBytes) {
    EXPECT_EQ(ToUtf8(ToWide(std::string("交底𠮷"))), "交底𠮷");
    EXPECT_EQ(ToWide(std::string("a\xff")), L"a\xfffd");
    EXPECT_EQ(AnsiToUnicode("会话"), L"会话");
}

}  // namespace
