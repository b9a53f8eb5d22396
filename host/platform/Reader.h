#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

namespace workbench {

/// Reads the members of one object and remembers whether all were of the right type.
class Reader {
public:
    explicit Reader(const QJsonValue& value) : m_object(value.toObject()), m_good(value.isObject()) {}

    std::wstring text(const char* key) {
        const QJsonValue value = m_object[QLatin1String(key)];
        m_good = m_good && value.isString();
        return value.toString().toStdWString();
    }
    std::wstring optionalText(const char* key) {
        const QJsonValue value = m_object[QLatin1String(key)];
        return value.isUndefined() || value.isNull() ? std::wstring() : text(key);
    }
    int32_t number(const char* key) {
        constexpr int32_t kLimit = std::numeric_limits<int32_t>::max();
        return static_cast<int32_t>(whole(key, -1.0 - kLimit, kLimit));
    }
    /// Milliseconds since 1970-01-01 UTC.
    int64_t mills(const char* key) { return static_cast<int64_t>(whole(key, 0, kLargestMills)); }
    /// True, false, or a number that is 0 for false.
    bool flag(const char* key) {
        const QJsonValue value = m_object[QLatin1String(key)];
        return value.isBool() ? value.toBool() : number(key) != 0;
    }
    int32_t optionalNumber(const char* key) { return m_object.contains(QLatin1String(key)) ? number(key) : 0; }

    template <class Record>
    std::optional<Record> result(Record record) const {
        return m_good ? std::optional<Record>(std::move(record)) : std::nullopt;
    }

private:
    static constexpr double kLargestMills = 253402300799999;  // the end of the year 9999

    double whole(const char* key, double least, double most) {
        const double value = m_object[QLatin1String(key)].toDouble(std::nan(""));
        const bool fits = value >= least && value <= most && value == std::floor(value);
        m_good = m_good && fits;
        return fits ? value : 0;
    }

    QJsonObject m_object;
    bool m_good;
};

/// The records of a list, each made by `read`; nothing when it is none or one of them is malformed, because half a list
/// would pass for the whole one.
template <class Record>
std::optional<std::vector<Record>> readList(const QJsonValue& value,
                                            std::optional<Record> (*read)(const QJsonValue& value)) {
    if (!value.isArray())
        return std::nullopt;
    std::vector<Record> records;
    for (const QJsonValue& item : value.toArray()) {
        std::optional<Record> record = read(item);
        if (!record)
            return std::nullopt;
        records.push_back(std::move(*record));
    }
    return records;
}

}  // namespace workbench
