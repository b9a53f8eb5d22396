#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

class QDialog;
class QMouseEvent;
class QQuickView;

/// Lets a frameless dialog be resized at its edges and corners, down to its minimum size; a maximised one stays as it
/// is. It belongs to the view.
class WindowEdges : public QObject {
public:
    WindowEdges(QDialog& dialog, QQuickView& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Qt::Edges edgesAt(QPoint place) const;
    void showCursor(Qt::Edges edges);
    void resize(QPoint moved);

    QDialog& m_dialog;
    QQuickView& m_view;
    Qt::Edges m_edges;  // being dragged
    QPoint m_pressed;
    QRect m_geometry;  // when it was pressed
    bool m_hasCursor = false;
};
