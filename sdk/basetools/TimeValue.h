#pragma once

#include <cstdint>
#include <string>

#include "sdk/Export.h"

namespace BASETOOLS {

/// Times as milliseconds since 1970-01-01 UTC, days as the user's local ones.
class HOSTSDK_API CKpxTimeValue {
public:
    /// "yyyy-MM-dd"; empty for 0, which means "not set".
    static std::wstring ToDayText(int64_t mills);
    /// The first millisecond of the day "yyyy-MM-dd"; 0 when `day` is not one.
    static int64_t FromDayText(const std::wstring& day);
    static int64_t StartOfDay(int64_t mills);
    /// The day's last millisecond.
    static int64_t EndOfDay(int64_t mills);
    /// The range that no time lies outside of, as OLE dates.
    static void GetTotalTimeDefine(double& start, double& end);
    /// Seconds since 1970-01-01 of an OLE date, which counts days since 1899-12-30.
    static int64_t OleDateToSeconds(double oleDate);
};

}  // namespace BASETOOLS
