#include "sdk/basetools/TextConversion.h"

#include <algorithm>

#include <QString>

namespace BASETOOLS {

std::wstring ToWide(const std::string& utf8) {
    // Most of what is converted are ids, thousands of them in one answer.
    if (std::all_of(utf8.begin(), utf8.end(), [](unsigned char byte) { return byte < 0x80; }))
        return {utf8.begin(), utf8.end()};
    return QString::fromStdString(utf8).toStdWString();
}

std::string ToUtf8(const std::wstring& wide) {
    return QString::fromStdWString(wide).toStdString();
}

std::wstring AnsiToUnicode(const std::string& ansi) {
#if defined(_WIN32)
    return QString::fromLocal8Bit(ansi.data(), static_cast<int>(ansi.size())).toStdWString();
#else
    return ToWide(ansi);  // Qt's local code page would be ASCII in the "C" locale
#endif
}

}  // namespace BASETOOLS
