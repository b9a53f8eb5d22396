#include "ui/common/WindowEdges.h"

#include <utility>

#include <QDialog>
#include <QMouseEvent>
#include <QQuickView>

namespace {

constexpr int kReach = 4;    // pixels from the edge
constexpr int kCorner = 12;  // along an edge, where the other one is dragged too

/// The edge of a side of `length` that `at` lies at, within `reach` of it.
Qt::Edges edgeOf(int at, int length, int reach, Qt::Edge first, Qt::Edge last) {
    return at < reach ? first : at >= length - reach ? last : Qt::Edges();
}

}  // namespace

WindowEdges::WindowEdges(QDialog& dialog, QQuickView& view) : QObject(&view), m_dialog(dialog), m_view(view) {
    view.installEventFilter(this);
}

Qt::Edges WindowEdges::edgesAt(QPoint place) const {
    if (m_dialog.isMaximized())
        return {};
    const auto edges = [&](int reach) {
        return edgeOf(place.x(), m_view.width(), reach, Qt::LeftEdge, Qt::RightEdge) |
               edgeOf(place.y(), m_view.height(), reach, Qt::TopEdge, Qt::BottomEdge);
    };
    return edges(kReach) ? edges(kCorner) : Qt::Edges();
}

bool WindowEdges::eventFilter(QObject*, QEvent* event) {
    const auto* mouse = static_cast<const QMouseEvent*>(event);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (mouse->button() != Qt::LeftButton)
                return false;
            m_edges = edgesAt(mouse->pos());
            m_pressed = mouse->globalPos();
            m_geometry = m_dialog.geometry();
            return bool(m_edges);
        case QEvent::MouseMove:
            if (m_edges)
                resize(mouse->globalPos() - m_pressed);
            else if (mouse->buttons() == Qt::NoButton)
                showCursor(edgesAt(mouse->pos()));
            return bool(m_edges);
        case QEvent::MouseButtonRelease:
            return bool(std::exchange(m_edges, {}));
        default:
            return false;
    }
}

void WindowEdges::showCursor(Qt::Edges edges) {
    const bool isUpright = edges == Qt::TopEdge || edges == Qt::BottomEdge;
    const bool falls = edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge);
    if (edges)
        m_view.setCursor(isUpright                                         ? Qt::SizeVerCursor
                         : edges == Qt::LeftEdge || edges == Qt::RightEdge ? Qt::SizeHorCursor
                         : falls                                           ? Qt::SizeFDiagCursor
                                                                           : Qt::SizeBDiagCursor);
    else if (m_hasCursor)
        m_view.unsetCursor();
    m_hasCursor = bool(edges);
}

void WindowEdges::resize(QPoint moved) {
    const QSize least = m_dialog.minimumSize();
    QRect to = m_geometry;
    if (m_edges & Qt::LeftEdge)
        to.setLeft(qMin(to.left() + moved.x(), to.right() + 1 - least.width()));
    if (m_edges & Qt::RightEdge)
        to.setWidth(qMax(to.width() + moved.x(), least.width()));
    if (m_edges & Qt::TopEdge)
        to.setTop(qMin(to.top() + moved.y(), to.bottom() + 1 - least.height()));
    if (m_edges & Qt::BottomEdge)
        to.setHeight(qMax(to.height() + moved.y(), least.height()));
    m_dialog.setGeometry(to);
}
