#include "service/domain/LocalDays.h"

#include <chrono>
#include <cstdio>
#include <date/date.h>
#include <date/tz.h>
#include <stdexcept>

namespace disclosure {

namespace {

using std::chrono::milliseconds;

date::local_time<milliseconds> localOf(const date::time_zone& zone, std::int64_t time) {
    return zone.to_local(date::sys_time<milliseconds>(milliseconds(time)));
}

date::local_days localDay(std::int64_t day) {
    return date::local_days(date::days(static_cast<date::days::rep>(day)));
}

std::string written(std::int64_t day, const char* form) {
    const date::year_month_day parts{localDay(day)};
    char text[64];
    std::snprintf(text, sizeof text, form, static_cast<int>(parts.year()), static_cast<unsigned>(parts.month()),
                  static_cast<unsigned>(parts.day()));
    return text;
}

}  // namespace

LocalDays::LocalDays(const std::string& zone) : m_zone(nullptr) {
    try {
        m_zone = date::locate_zone(zone);
        m_zone->to_local(date::sys_time<milliseconds>());  // the zone's file is first read here
    } catch (const std::exception&) {
        throw std::invalid_argument("there is no time zone \"" + zone + "\"");
    }
}

std::int64_t LocalDays::dayOf(std::int64_t time) const {
    return date::floor<date::days>(localOf(*m_zone, time)).time_since_epoch().count();
}

int LocalDays::hourOf(std::int64_t time) const {
    const auto local = localOf(*m_zone, time);
    return static_cast<int>(date::floor<std::chrono::hours>(local - date::floor<date::days>(local)).count());
}

std::int64_t LocalDays::startOf(std::int64_t day) const {
    const date::local_time<milliseconds> midnight = localDay(day);
    return m_zone->to_sys(midnight, date::choose::earliest).time_since_epoch().count();
}

std::string isoDay(std::int64_t day) {
    return written(day, "%04d-%02u-%02u");
}

std::string chineseDay(std::int64_t day) {
    return written(day, "%d年%u月%u日");
}

}  // namespace disclosure
