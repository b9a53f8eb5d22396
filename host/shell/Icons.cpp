#include "host/shell/Icons.h"

#include <functional>

#include <QPainter>
#include <QPainterPath>

#include "host/shell/Look.h"

namespace workbench::icons {
namespace {

constexpr int kLargestScale = 4;

/// Drawn with its own pixels for every scale.
QIcon drawn(const std::function<void(QPainter&)>& draw) {
    QIcon icon;
    for (int scale = 1; scale <= kLargestScale; ++scale) {
        QPixmap pixmap(kSide * scale, kSide * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(look::kIcon), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        draw(painter);
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

QIcon bell() {
    return drawn([](QPainter& painter) {
        QPainterPath body;
        body.moveTo(4, 17.5);
        body.cubicTo(6.5, 15.5, 6.5, 13, 6.5, 10.5);
        body.cubicTo(6.5, 3.5, 17.5, 3.5, 17.5, 10.5);
        body.cubicTo(17.5, 13, 17.5, 15.5, 20, 17.5);
        body.closeSubpath();
        painter.drawPath(body);
        painter.drawLine(QPointF(12, 3.2), QPointF(12, 5));
        painter.drawArc(QRectF(9.5, 16, 5, 5), 200 * 16, 140 * 16);
    });
}

QIcon command() {
    return drawn([](QPainter& painter) {
        painter.drawRoundedRect(QRectF(4, 4.5, 16, 15), 2, 2);
        for (const double y : {9.0, 12.0, 15.0}) {
            painter.drawPoint(QPointF(7.5, y));
            painter.drawLine(QPointF(10.5, y), QPointF(16.5, y));
        }
    });
}

QIcon folder() {
    return drawn([](QPainter& painter) {
        painter.drawPolyline(
            QPolygonF({{3.5, 6}, {9.5, 6}, {11.5, 8.5}, {20.5, 8.5}, {20.5, 19}, {3.5, 19}, {3.5, 6}}));
    });
}

QIcon log() {
    return drawn([](QPainter& painter) {
        painter.drawPolyline(QPolygonF({{14, 3.5}, {6, 3.5}, {6, 20.5}, {18, 20.5}, {18, 7.5}, {14, 3.5}}));
        for (const double y : {11.0, 14.0, 17.0})
            painter.drawLine(QPointF(9, y), QPointF(15, y));
    });
}

QIcon refresh() {
    return drawn([](QPainter& painter) {
        painter.drawArc(QRectF(5, 5, 14, 14), 40 * 16, 290 * 16);
        painter.drawPolyline(QPolygonF({{18.8, 4}, {18.2, 8.2}, {14, 8}}));
    });
}

QIcon user() {
    return drawn([](QPainter& painter) {
        painter.drawEllipse(QPointF(12, 8.5), 3.7, 3.7);
        QPainterPath shoulders;
        shoulders.moveTo(5, 20);
        shoulders.cubicTo(5, 12.5, 19, 12.5, 19, 20);
        painter.drawPath(shoulders);
    });
}

}  // namespace workbench::icons
