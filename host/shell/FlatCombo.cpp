#include "host/shell/FlatCombo.h"

#include <QPainter>

#include "host/shell/Look.h"

namespace workbench {

void FlatCombo::paintEvent(QPaintEvent*) {
    constexpr int kArrowRoom = 26;
    constexpr int kPadding = 9;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(hasFocus() || underMouse() ? look::kFocus : look::kBorder));
    painter.setBrush(isEnabled() ? Qt::white : QColor(look::kDisabled));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);

    const QRect room = rect().adjusted(kPadding, 0, -kArrowRoom, 0);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width()));
    painter.setPen(QPen(QColor(look::kIcon), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(width() - kArrowRoom / 2.0, height() / 2.0);
    painter.drawPolyline(QPolygonF({{-4, -2}, {0, 2}, {4, -2}}));
}

}  // namespace workbench
