#include "host/shell/BellButton.h"

#include <algorithm>

#include <QPainter>

#include "host/shell/Icons.h"
#include "host/shell/Look.h"

namespace workbench {
namespace {

constexpr int kMostShown = 99;

}  // namespace

BellButton::BellButton(QWidget* parent) : QToolButton(parent) {
    setIcon(icons::bell());
    setIconSize({icons::kSide, icons::kSide});
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
    const QRectF badge(left, std::max(0, this->height() / 2 - icons::kSide / 2 - 3), width, height);

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
