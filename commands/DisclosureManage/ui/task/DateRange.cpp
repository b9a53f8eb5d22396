#include "commands/DisclosureManage/ui/task/DateRange.h"

#include <QCoreApplication>

namespace {

DateRange months(QDate first, int count) {
    return {first, first.addMonths(count).addDays(-1)};
}
DateRange week(QDate monday) {
    return {monday, monday.addDays(6)};
}
DateRange day(QDate date) {
    return {date, date};
}

}  // namespace

QStringList DateRangeChoices() {
    static constexpr const char* kTexts[] = {
        QT_TRANSLATE_NOOP("DateRange", "全部"),   QT_TRANSLATE_NOOP("DateRange", "本月"),
        QT_TRANSLATE_NOOP("DateRange", "下月"),   QT_TRANSLATE_NOOP("DateRange", "上月"),
        QT_TRANSLATE_NOOP("DateRange", "本周"),   QT_TRANSLATE_NOOP("DateRange", "下周"),
        QT_TRANSLATE_NOOP("DateRange", "上周"),   QT_TRANSLATE_NOOP("DateRange", "今天"),
        QT_TRANSLATE_NOOP("DateRange", "明天"),   QT_TRANSLATE_NOOP("DateRange", "本季度"),
        QT_TRANSLATE_NOOP("DateRange", "下季度"), QT_TRANSLATE_NOOP("DateRange", "上季度"),
        QT_TRANSLATE_NOOP("DateRange", "今年"),   QT_TRANSLATE_NOOP("DateRange", "明年"),
        QT_TRANSLATE_NOOP("DateRange", "去年"),   QT_TRANSLATE_NOOP("DateRange", "自定义"),
    };
    QStringList texts;
    for (const char* text : kTexts)
        texts.append(QCoreApplication::translate("DateRange", text));
    return texts;
}

DateRange RangeOf(DateRangeChoice choice, QDate today) {
    const QDate month(today.year(), today.month(), 1);
    const QDate quarter(today.year(), (today.month() - 1) / 3 * 3 + 1, 1);
    const QDate year(today.year(), 1, 1);
    const QDate monday = today.addDays(1 - today.dayOfWeek());
    switch (choice) {
        case DateRangeChoice::ThisMonth:
            return months(month, 1);
        case DateRangeChoice::NextMonth:
            return months(month.addMonths(1), 1);
        case DateRangeChoice::LastMonth:
            return months(month.addMonths(-1), 1);
        case DateRangeChoice::ThisWeek:
            return week(monday);
        case DateRangeChoice::NextWeek:
            return week(monday.addDays(7));
        case DateRangeChoice::LastWeek:
            return week(monday.addDays(-7));
        case DateRangeChoice::Today:
            return day(today);
        case DateRangeChoice::Tomorrow:
            return day(today.addDays(1));
        case DateRangeChoice::ThisQuarter:
            return months(quarter, 3);
        case DateRangeChoice::NextQuarter:
            return months(quarter.addMonths(3), 3);
        case DateRangeChoice::LastQuarter:
            return months(quarter.addMonths(-3), 3);
        case DateRangeChoice::ThisYear:
            return months(year, 12);
        case DateRangeChoice::NextYear:
            return months(year.addYears(1), 12);
        case DateRangeChoice::LastYear:
            return months(year.addYears(-1), 12);
        case DateRangeChoice::All:
        case DateRangeChoice::Custom:
            break;
    }
    return {};
}
