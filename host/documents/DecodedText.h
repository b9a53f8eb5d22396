#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

namespace workbench {

struct DecodedText {
    QString text;
    QString encoding;     // its name
    bool isWhole = true;  // every byte had a meaning
};

/// UTF-8, UTF-16 with a byte order mark, else GB18030; nothing where the bytes are no text.
std::optional<DecodedText> decodeText(const QByteArray& bytes);

}  // namespace workbench
