#include "sdk/basetools/TimeValue.h"

#include <cmath>

#include <QDateTime>

namespace BASETOOLS {
namespace {

constexpr char kDayFormat[] = "yyyy-MM-dd";
constexpr double kOleDateOf1970 = 25569;
constexpr double kOleDateOf10000 = 2958466;
constexpr double kSecondsPerDay = 86400;

QDate LocalDay(int64_t mills) {
    return QDateTime::fromMSecsSinceEpoch(mills).date();
}

}  // namespace

std::wstring CKpxTimeValue::ToDayText(int64_t mills) {
    return mills == 0 ? std::wstring() : LocalDay(mills).toString(kDayFormat).toStdWString();
}

int64_t CKpxTimeValue::FromDayText(const std::wstring& day) {
    const QDate date = QDate::fromString(QString::fromStdWString(day), kDayFormat);
    return date.isValid() ? date.startOfDay().toMSecsSinceEpoch() : 0;
}

int64_t CKpxTimeValue::StartOfDay(int64_t mills) {
    return LocalDay(mills).startOfDay().toMSecsSinceEpoch();
}

int64_t CKpxTimeValue::EndOfDay(int64_t mills) {
    return LocalDay(mills).endOfDay().toMSecsSinceEpoch();
}

void CKpxTimeValue::GetTotalTimeDefine(double& start, double& end) {
    start = kOleDateOf1970;
    end = kOleDateOf10000 - 1 / kSecondsPerDay;
}

int64_t CKpxTimeValue::OleDateToSeconds(double oleDate) {
    return std::llround((oleDate - kOleDateOf1970) * kSecondsPerDay);
}

}  // namespace BASETOOLS
