#pragma once

#include <algorithm>
#include <string>

#include <QString>

/// `QString::fromStdWString`, faster: lists of catalogs are long, and outside Windows that goes through a decoder which
/// takes each byte by itself. Text that needs surrogates is left to it.
inline QString FromWide(const std::wstring& wide) {
    uint bits = 0;
    for (const wchar_t letter : wide)
        bits |= static_cast<uint>(letter);
    if (bits > 0xffff)
        return QString::fromStdWString(wide);
    QString text(static_cast<int>(wide.size()), Qt::Uninitialized);
    std::transform(wide.begin(), wide.end(), text.begin(),
                   [](wchar_t letter) { return QChar(static_cast<ushort>(letter)); });
    return text;
}
