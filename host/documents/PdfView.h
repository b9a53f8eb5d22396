#pragma once

#include <QPdfDocument>

#include "host/documents/DocumentView.h"

class QPdfView;

namespace workbench {

/// A PDF, page below page. Asks for the password of an encrypted one.
class PdfView final : public DocumentView {
    Q_OBJECT

public:
    explicit PdfView(QWidget* parent);

    QString open(const QString& path) override;
    void zoomBy(double factor) override;
    void fit() override;

private:
    /// Asks until it fits; false when the user gives up.
    bool unlock(const QString& path);
    /// How far a page may be enlarged, because it is painted as a whole.
    double largestZoom() const;
    void measure();

    QPdfDocument* m_document;
    QPdfView* m_view;
    QSizeF m_largest{1, 1};  // as wide and as high as any page, in inches
    double m_steepest = 1;   // the height of a page in its widths
};

}  // namespace workbench
