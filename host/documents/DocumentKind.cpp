#include "host/documents/DocumentKind.h"

#include <algorithm>
#include <iterator>

#include <QRegularExpression>
#include <QStringList>

namespace workbench {
namespace {

struct KindOfExtensions {
    DocumentKind kind;
    const char* extensions;  // separated by blanks
};

// Only what some program shows, nothing that a system runs.
constexpr KindOfExtensions kKinds[] = {
    {DocumentKind::Text, "txt log csv tsv md ini json xml yaml yml"},
    {DocumentKind::Picture, "png jpg jpeg jpe bmp gif tif tiff webp"},
    {DocumentKind::Pdf, "pdf"},
    {DocumentKind::Outside,
     "doc docx odt rtf wps xls xlsx ods et ppt pptx odp dps dwg dxf dwf ifc rvt skp rfa vsd vsdx "
     "mpp mp3 wav mp4 avi mov mkv wmv webm m4v zip rar 7z"},
};

QString extensionOf(const QString& name) {
    const int dot = name.lastIndexOf('.');
    return dot < 0 ? QString() : name.mid(dot + 1).toLower();
}

constexpr int kLongestName = 80;  // characters, which are at most 240 bytes

}  // namespace

DocumentKind documentKind(const QString& name) {
    const QString extension = extensionOf(name);
    for (const KindOfExtensions& entry : kKinds)
        if (QString(entry.extensions).split(' ').contains(extension))
            return entry.kind;
    return DocumentKind::Unknown;
}

QString safeExtension(const QString& name) {
    return documentKind(name) == DocumentKind::Unknown ? "bin" : extensionOf(name);
}

QString safeFileName(const QString& name) {
    static const QRegularExpression forbidden(R"([\\/:*?"<>|\x00-\x1f\x7f])");
    static const QRegularExpression ends(R"(^[.\s]+|[.\s]+$)");
    QString safe = QString(name).replace(forbidden, "_").remove(ends);
    if (const int excess = safe.size() - kLongestName; excess > 0) {
        const int dot = safe.lastIndexOf('.');
        const int end = dot > excess ? dot : safe.size();
        safe.remove(end - excess, excess);
    }
    return safe.isEmpty() ? "_" : safe;
}

bool isProgram(const QByteArray& beginning) {
    static const QByteArray kBeginnings[] = {
        "MZ", "\177ELF", "#!", "[Desktop Entry]", "\xcf\xfa\xed\xfe", "\xca\xfe\xba\xbe"};
    return std::any_of(std::begin(kBeginnings), std::end(kBeginnings),
                       [&](const QByteArray& known) { return beginning.startsWith(known); });
}

}  // namespace workbench
