#include "host/shell/BellButton.h"

#include <algorithm>

#include <QPainter>
#include <QPainterPath>

#include "host/shell/Look.h"

namespace workbench {
namespace {

constexpr int kMostShown = 99;
constexpr int kSide = 24;  // the grid the bell is drawn on
constexpr int kLargestScale = 4;

/// Drawn with its own pixels for every scale.
QPixmap drawBell(int scale) {
    QPixmap pixmap(kSide * scale, kSide * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(look::kIcon), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath body;
    body.moveTo(4, 17.5);
    body.cubicTo(6.5, 15.5, 6.5, 13, 6.5, 10.5);
    body.cubicTo(6.5, 3.5, 17.5, 3.5, 17.5, 10.5);
    body.cubicTo(17.5, 13, 17.5, 15.5, 20, 17.5);
    body.closeSubpath();
    painter.drawPath(body);
    painter.drawLine(QPointF(12, 3.2), QPointF(12, 5));
    painter.drawArc(QRectF(9.5, 16, 5, 5), 200 * 16, 140 * 16);
    return pixmap;
}

}  // namespace

BellButton::BellButton(QWidget* parent) : QToolButton(parent) {
    QIcon bell;
    for (int scale = 1; scale <= kLargestScale; ++scale)
        bell.addPixmap(drawBell(scale));
    setIcon(bell);
    setIconSize({kSide, kSide});
    setUnread(0);
}

void BellButton::setUnread(int count) {
    m_unread = count;
    setAccessibleName(tr("消息，%1条未读").arg(count));
    setToolTip(tr("消息，%1条未读（Ctrl+M）").arg(count));
    update();
}

void BellButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (m_unread <= 0)
        return;
    const QString text = m_unread > kMostShown ? QString("%1+").arg(kMostShown) : QString::number(m_unread);
    QFont small = font();
    small.setPixelSize(10);
    small.setBold(true);
    const QFontMetrics metrics(small);
    const int height = metrics.height() + 1;
    const int width = std::max(height, metrics.horizontalAdvance(text) + 8);
    // Its left end lies on the bell's shoulder, so that a wide number does not hide the bell.
    const int left = std::min(this->width() - width, this->width() / 2 + 1);
    const QRectF badge(left, std::max(0, this->height() / 2 - kSide / 2 - 3), width, height);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(look::kDead));
    painter.drawRoundedRect(badge, height / 2.0, height / 2.0);
    painter.setPen(Qt::white);
    painter.setFont(small);
    painter.drawText(badge, Qt::AlignCenter, text);
}

}  // namespace workbench
