#include "host/documents/TextView.h"

#include <algorithm>

#include <QFile>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "host/documents/DecodedText.h"

namespace workbench {
namespace {

constexpr int kLongestLine = 4096;  // longer ones take the text field seconds
constexpr double kSmallest = 6;
constexpr double kMargin = 12;
constexpr double kBiggest = 60;

/// The text with its overlong lines broken; whether there were any.
bool breakLines(QString& text) {
    QString broken;
    int begin = 0;
    int lineBegin = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character == '\n') {
            lineBegin = i + 1;
        } else if (i - lineBegin >= kLongestLine && !character.isLowSurrogate()) {
            broken += text.midRef(begin, i - begin);
            broken += '\n';
            begin = lineBegin = i;
        }
    }
    if (begin == 0)
        return false;
    text = broken + text.midRef(begin);
    return true;
}

}  // namespace

TextView::TextView(QWidget* parent) : DocumentView(parent), m_text(new QPlainTextEdit) {
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->document()->setDocumentMargin(kMargin);
    m_text->setAccessibleName(tr("内容"));
    m_usualSize = m_text->font().pointSizeF();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    setFocusProxy(m_text);
}

QString TextView::open(const QString& path) {
    QFile file(path);
    if (file.size() > kLargest)
        return tr("文件有 %1，超过 %2 的文本不在此显示。").arg(sizeText(file.size()), sizeText(kLargest));
    if (!file.open(QIODevice::ReadOnly))
        return tr("无法读取文件。");
    auto decoded = decodeText(file.readAll());
    if (!decoded)
        return tr("文件的内容不是文本。");
    QStringList notes{decoded->encoding};
    if (!decoded->isWhole)
        notes << tr("部分字符无法识别");
    if (breakLines(decoded->text))
        notes << tr("过长的行已折断");
    m_text->setPlainText(decoded->text);
    emit said(notes.join(" · "));
    return {};
}

void TextView::zoomBy(double factor) {
    setPointSize(std::clamp(m_text->font().pointSizeF() * factor, kSmallest, kBiggest));
}

void TextView::fit() {
    setPointSize(m_usualSize);
}

void TextView::setPointSize(double size) {
    QFont font = m_text->font();
    font.setPointSizeF(size);
    m_text->setFont(font);
}

}  // namespace workbench
