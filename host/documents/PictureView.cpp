#include "host/documents/PictureView.h"

#include <algorithm>
#include <optional>

#include <QGraphicsPixmapItem>
#include <QGraphicsView>
#include <QImageReader>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "host/platform/Aside.h"

namespace workbench {
namespace {

constexpr double kSmallestScale = 0.01;
constexpr double kLargestScale = 20;
constexpr double kWheelStep = 1.2;

/// What is in a file is found by looking, whatever it is called; but only pictures of pixels.
bool isPixels(const QByteArray& format) {
    static const QByteArray kFormats[] = {"png", "jpeg", "jpg", "bmp", "gif", "tiff", "tif", "webp"};
    return std::find(std::begin(kFormats), std::end(kFormats), format) != std::end(kFormats);
}

}  // namespace

PictureView::PictureView(QWidget* parent) : DocumentView(parent), m_view(new QGraphicsView) {
    m_view->setScene(new QGraphicsScene(m_view));
    m_view->setDragMode(QGraphicsView::ScrollHandDrag);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAccessibleName(tr("图片"));
    m_view->viewport()->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
}

QString PictureView::open(const QString& path) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!reader.canRead() || !isPixels(reader.format()) || size.isEmpty())
        return tr("文件不是可以识别的图片，或者已经损坏。");
    if (static_cast<qint64>(size.width()) * size.height() > kMostPixels)
        return tr("图片有 %1 × %2 像素，太大，不在此显示。").arg(size.width()).arg(size.height());
    const QImage image = aside([&reader] { return reader.read(); });
    if (image.isNull())
        return tr("图片已经损坏，无法显示。");
    auto* item = m_view->scene()->addPixmap(QPixmap::fromImage(image));
    item->setTransformationMode(Qt::SmoothTransformation);
    m_view->setSceneRect(item->boundingRect());
    emit said(tr("%1 × %2 像素").arg(image.width()).arg(image.height()));
    fit();
    return {};
}

void PictureView::zoomBy(double factor) {
    m_isFitted = false;
    const double now = m_view->transform().m11();
    const double wanted = std::clamp(now * factor, kSmallestScale, kLargestScale);
    m_view->scale(wanted / now, wanted / now);
}

void PictureView::fit() {
    m_isFitted = true;
    const QSizeF picture = m_view->sceneRect().size();
    const QSizeF room = m_view->maximumViewportSize();
    const double scale = std::min({1.0, room.width() / picture.width(), room.height() / picture.height()});
    m_view->setTransform(QTransform::fromScale(scale, scale));
}

void PictureView::resizeEvent(QResizeEvent* event) {
    DocumentView::resizeEvent(event);
    if (m_isFitted && !m_view->scene()->items().isEmpty())
        fit();
}

bool PictureView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel)
        return DocumentView::eventFilter(watched, event);
    m_view->setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    zoomBy(static_cast<QWheelEvent*>(event)->angleDelta().y() > 0 ? kWheelStep : 1 / kWheelStep);
    m_view->setTransformationAnchor(QGraphicsView::AnchorViewCenter);
    return true;
}

}  // namespace workbench
