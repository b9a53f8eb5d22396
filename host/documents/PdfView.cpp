#include "host/documents/PdfView.h"

#include <algorithm>
#include <cmath>

#include <QLineEdit>
#include <QPdfPageNavigation>
#include <QPdfView>
#include <QScrollBar>
#include <QVBoxLayout>

#include "host/documents/FormDialog.h"

namespace workbench {
namespace {

constexpr double kMostPixels = 64e6;  // of a painted page
constexpr double kSmallestZoom = 0.1;
constexpr double kPointsPerInch = 72;
constexpr double kSteepest = 5;
constexpr int kPagesLookedAt = 2000;

}  // namespace

PdfView::PdfView(QWidget* parent)
    : DocumentView(parent), m_document(new QPdfDocument(this)), m_view(new QPdfView(this)) {
    m_view->setPageMode(QPdfView::MultiPage);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAccessibleName(tr("PDF 页面"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    connect(m_view->pageNavigation(), &QPdfPageNavigation::currentPageChanged, this,
            [this](int page) { emit said(tr("第 %1 / %2 页").arg(page + 1).arg(m_document->pageCount())); });
}

QString PdfView::open(const QString& path) {
    QPdfDocument::DocumentError error = m_document->load(path);
    if (error == QPdfDocument::IncorrectPasswordError) {
        if (!unlock(path))
            return tr("PDF 已加密，没有密码不能显示。");
        error = m_document->error();
    }
    if (error == QPdfDocument::UnsupportedSecuritySchemeError)
        return tr("PDF 的加密方式不受支持，不能在此显示。");
    if (error != QPdfDocument::NoError || m_document->pageCount() == 0)
        return tr("文件不是 PDF，或者已经损坏。");
    measure();
    m_view->setDocument(m_document);
    emit said(tr("第 %1 / %2 页").arg(1).arg(m_document->pageCount()));
    fit();
    return {};
}

bool PdfView::unlock(const QString& path) {
    auto* password = new QLineEdit;
    password->setEchoMode(QLineEdit::Password);
    const auto open = [this, password, path] {
        m_document->setPassword(password->text());
        return m_document->load(path) == QPdfDocument::IncorrectPasswordError ? tr("密码不正确，请重新输入")
                                                                              : QString();
    };
    return FormDialog(tr("密码"), tr("PDF 已加密，请输入密码"), password, open, window()).exec() == QDialog::Accepted;
}

void PdfView::measure() {
    for (int page = 0; page < std::min(m_document->pageCount(), kPagesLookedAt); ++page) {
        const QSizeF size = m_document->pageSize(page) / kPointsPerInch;
        m_largest = m_largest.expandedTo(size);
        if (size.width() > 0)
            m_steepest = std::max(m_steepest, size.height() / size.width());
    }
}

double PdfView::largestZoom() const {
    const double dots = logicalDpiX() * devicePixelRatioF();
    return std::sqrt(kMostPixels / (m_largest.width() * m_largest.height())) / dots;
}

void PdfView::zoomBy(double factor) {
    const double fitted = m_view->viewport()->width() / (m_largest.width() * logicalDpiX());
    const double now = m_view->zoomMode() == QPdfView::CustomZoom ? m_view->zoomFactor() : fitted;
    const double wanted = std::min(std::max(now * factor, kSmallestZoom), largestZoom());
    struct Place {
        QScrollBar* bar;
        double middle;  // of what is seen, at the zoom of before
    } places[] = {{m_view->horizontalScrollBar(), 0}, {m_view->verticalScrollBar(), 0}};
    for (Place& place : places)
        place.middle = place.bar->value() + place.bar->pageStep() / 2.0;
    m_view->setZoomMode(QPdfView::CustomZoom);
    m_view->setZoomFactor(wanted);
    for (const Place& place : places)
        place.bar->setValue(static_cast<int>(place.middle * wanted / now - place.bar->pageStep() / 2.0));
}

void PdfView::fit() {
    // A page much higher than wide would be too much to paint in the window's width.
    m_view->setZoomMode(m_steepest > kSteepest ? QPdfView::FitInView : QPdfView::FitToWidth);
}

}  // namespace workbench
