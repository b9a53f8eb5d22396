#pragma once

#include <cstdint>
#include <string>

namespace date {
class time_zone;
}

namespace disclosure {

/// The calendar of one time zone: which local day and hour a moment lies in. Moments are milliseconds since 1970-01-01
/// UTC, days are numbered from that date.
class LocalDays {
public:
    /// Throws std::invalid_argument when the machine knows no such zone. `zone` is an IANA name.
    explicit LocalDays(const std::string& zone);

    std::int64_t dayOf(std::int64_t time) const;
    int hourOf(std::int64_t time) const;
    /// The first moment of the day, which is not midnight where the clocks are put forward then.
    std::int64_t startOf(std::int64_t day) const;

private:
    const date::time_zone* m_zone;
};

/// "2026-11-25"
std::string isoDay(std::int64_t day);
/// "2026年11月25日"
std::string chineseDay(std::int64_t day);

}  // namespace disclosure
