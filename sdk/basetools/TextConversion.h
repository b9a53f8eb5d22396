#pragma once

#include <string>

#include "sdk/Export.h"

/// Conversions between the wide strings of the interfaces, UTF-8, and the string type of the HTTP library (UTF-8 on
/// Linux, wide on Windows). `QString` converts with its own `toStdWString` and `fromStdWString`.
namespace BASETOOLS {

/// Bytes that are not UTF-8 become U+FFFD.
HOSTSDK_API std::wstring ToWide(const std::string& utf8);
inline std::wstring ToWide(const std::wstring& wide) {
    return wide;
}

HOSTSDK_API std::string ToUtf8(const std::wstring& wide);

/// From the local code page, which is UTF-8 outside Windows.
HOSTSDK_API std::wstring AnsiToUnicode(const std::string& ansi);

/// A wide string as `String`, either std::string (UTF-8) or std::wstring.
template <class String>
String FromWide(const std::wstring& wide);
template <>
inline std::string FromWide<std::string>(const std::wstring& wide) {
    return ToUtf8(wide);
}
template <>
inline std::wstring FromWide<std::wstring>(const std::wstring& wide) {
    return wide;
}

}  // namespace BASETOOLS
