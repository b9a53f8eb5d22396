// Renders the drawings of ui/Images/src into the PNGs that the resources hold, each in its size and in twice that. The
// PNGs are committed, so that a build needs no SVG reader; run tools/make_pictures.sh after changing a drawing or the
// list.

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QTextStream>

namespace {

bool render(const QByteArray& svg, int side, const QString& path) {
    QByteArray bytes = svg;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize({side, side});
    const QImage image = reader.read();
    return !image.isNull() && image.convertToFormat(QImage::Format_ARGB32).save(path);
}

bool makePicture(const QDir& source, const QDir& target, const QStringList& words) {
    QFile drawing(source.filePath(words[1] + ".svg"));
    if (!drawing.open(QIODevice::ReadOnly))
        return false;
    const QByteArray svg = drawing.readAll().replace("#000000", words[2].toLatin1());
    const QString stem = target.filePath(words[0]);
    const int side = words.value(3, "16").toInt();
    return QDir().mkpath(QFileInfo(stem).path()) && render(svg, side, stem + ".png") &&
           render(svg, 2 * side, stem + "@2x.png");
}

QString resourceEntries(const QStringList& pictures) {
    QString text;
    for (const QString& picture : pictures)
        text += "    <file>" + picture + ".png</file>\n    <file>" + picture + "@2x.png</file>\n";
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: make_pictures FOLDER (the one that holds src/pictures.txt)\n";
        return 2;
    }
    const QDir target(argv[1]);
    const QDir source(target.filePath("src"));
    QFile list(source.filePath("pictures.txt"));
    QFile resources(target.filePath("Images.qrc"));
    if (!list.open(QIODevice::ReadOnly) || !resources.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 1;

    QStringList pictures;
    while (!list.atEnd()) {
        const QString line = QString::fromUtf8(list.readLine()).simplified();
        if (line.isEmpty() || line.startsWith("# "))
            continue;
        const QStringList words = line.split(' ');
        if (words.size() < 3 || !makePicture(source, target, words)) {
            QTextStream(stderr) << "cannot make: " << line << '\n';
            return 1;
        }
        pictures += words[0];
    }
    QTextStream(&resources) << "<RCC>\n  <qresource prefix=\"/ui/Images\">\n"
                            << resourceEntries(pictures) << "  </qresource>\n</RCC>\n";
    return 0;
}
