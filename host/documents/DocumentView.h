#pragma once

#include <QWidget>

#include "host/documents/DocumentKind.h"

namespace workbench {

/// Shows the content of a file.
class DocumentView : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Why it cannot be shown, for the user; empty when it is.
    virtual QString open(const QString& path) = 0;
    virtual void zoomBy(double factor) = 0;
    virtual void fit() = 0;

signals:
    /// What there is to say of what is shown, such as its page.
    void said(const QString& text);
};

/// Null where the kind is not shown inside.
DocumentView* createDocumentView(DocumentKind kind, QWidget* parent);

/// "1.5 MB"
QString sizeText(qint64 bytes);

}  // namespace workbench
