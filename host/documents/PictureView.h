#pragma once

#include "host/documents/DocumentView.h"

class QGraphicsView;

namespace workbench {

/// A picture, which can be zoomed and dragged. Its size is judged before anything of it is decoded.
class PictureView final : public DocumentView {
    Q_OBJECT

public:
    static constexpr qint64 kMostPixels = 100LL * 1000 * 1000;

    explicit PictureView(QWidget* parent);

    QString open(const QString& path) override;
    void zoomBy(double factor) override;
    void fit() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGraphicsView* m_view;
    bool m_isFitted = true;
};

}  // namespace workbench
