#pragma once

#include <cstdint>

#include <QDateTime>
#include <QString>

#include "sdk/basetools/TimeValue.h"
#include "ui/common/WideText.h"

/// Days of the local calendar between the records, which hold milliseconds, and the screens, which hold texts
/// "yyyy-MM-dd". An unset one is 0, null or empty.

inline QDate DayOf(int64_t mills) {
    return mills > 0 ? QDateTime::fromMSecsSinceEpoch(mills).date() : QDate();
}

inline QString DayText(int64_t mills) {
    return mills > 0 ? FromWide(BASETOOLS::CKpxTimeValue::ToDayText(mills)) : QString();
}

/// The day's first millisecond; 0 too for a text that is no day or one that cannot be stored.
inline int64_t DayStart(const QString& day) {
    return qMax<int64_t>(BASETOOLS::CKpxTimeValue::FromDayText(day.toStdWString()), 0);
}
