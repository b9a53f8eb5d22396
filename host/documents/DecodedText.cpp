#include "host/documents/DecodedText.h"

#include <QTextCodec>

namespace workbench {
namespace {

DecodedText decode(const QByteArray& bytes, const char* encoding) {
    QTextCodec::ConverterState state;
    DecodedText decoded;
    decoded.text = QTextCodec::codecForName(encoding)->toUnicode(bytes.constData(), bytes.size(), &state);
    decoded.encoding = encoding;
    decoded.isWhole = state.invalidChars == 0 && state.remainingChars == 0;
    return decoded;
}

}  // namespace

std::optional<DecodedText> decodeText(const QByteArray& bytes) {
    for (const char* mark : {"\xff\xfe", "\xfe\xff"})
        if (bytes.startsWith(mark))
            return decode(bytes, "UTF-16");
    if (bytes.contains('\0'))
        return std::nullopt;
    if (DecodedText decoded = decode(bytes, "UTF-8"); decoded.isWhole)
        return decoded;
    DecodedText decoded = decode(bytes, "GB18030");
    decoded.isWhole = decoded.isWhole && !decoded.text.contains(QChar::ReplacementCharacter);  // it counts none
    return decoded;
}

}  // namespace workbench
