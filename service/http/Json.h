#pragma once

#include <cstdint>
#include <optional>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string>
#include <string_view>
#include <vector>

namespace disclosure {

using JsonBuffer = rapidjson::StringBuffer;
using JsonWriter = rapidjson::Writer<JsonBuffer>;

inline constexpr auto JsonType = "application/json; charset=utf-8";

/// A body as JSON. Throws `HttpError` 400 when it is not JSON, is nested too deep, names a key twice, or holds text
/// that is not UTF-8 or contains NUL.
rapidjson::Document parsedJson(const std::string& body);

/// The text under the key; empty when the key is absent.
std::string textOf(const rapidjson::Value& object, const char* key);
/// The number under the key, which the schema has made sure fits; `otherwise` when the key is absent.
std::int32_t numberOf(const rapidjson::Value& object, const char* key, std::int32_t otherwise);
/// The same, or nothing when the key is absent.
std::optional<std::string> maybeText(const rapidjson::Value& object, const char* key);
std::optional<std::int64_t> maybeLong(const rapidjson::Value& object, const char* key);
/// The texts of the list under the key; none when the key is absent.
std::vector<std::string> textsOf(const rapidjson::Value& object, const char* key);

inline void write(JsonWriter& writer, const char* key, const std::string& value) {
    writer.Key(key);
    writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
}
inline void write(JsonWriter& writer, const char* key, const char* value) {
    writer.Key(key);
    writer.String(value);
}
inline void write(JsonWriter& writer, const char* key, std::int32_t value) {
    writer.Key(key);
    writer.Int(value);
}
inline void write(JsonWriter& writer, const char* key, std::int64_t value) {
    writer.Key(key);
    writer.Int64(value);
}
inline void write(JsonWriter& writer, const char* key, bool value) {
    writer.Key(key);
    writer.Bool(value);
}

}  // namespace disclosure
