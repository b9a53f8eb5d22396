#pragma once

#include <QDate>
#include <QStringList>

/// The ranges of days that a date filter offers, in the order of their menu. Weeks start on Monday.
enum class DateRangeChoice {
    All,
    ThisMonth,
    NextMonth,
    LastMonth,
    ThisWeek,
    NextWeek,
    LastWeek,
    Today,
    Tomorrow,
    ThisQuarter,
    NextQuarter,
    LastQuarter,
    ThisYear,
    NextYear,
    LastYear,
    Custom,
};

/// Whole days, both ends included.
struct DateRange {
    QDate start;
    QDate end;
    bool operator==(const DateRange&) const = default;
};

/// The texts of the choices, in their order.
QStringList DateRangeChoices();

/// Null dates for All, which knows no bounds, and for Custom, whose bounds are the user's.
DateRange RangeOf(DateRangeChoice choice, QDate today);
