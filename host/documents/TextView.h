#pragma once

#include "host/documents/DocumentView.h"

class QPlainTextEdit;

namespace workbench {

/// Text in any of the encodings that sites use.
class TextView final : public DocumentView {
    Q_OBJECT

public:
    static constexpr qint64 kLargest = 8LL * 1024 * 1024;  // bytes

    explicit TextView(QWidget* parent);

    QString open(const QString& path) override;
    void zoomBy(double factor) override;
    void fit() override;

private:
    void setPointSize(double size);

    QPlainTextEdit* m_text;
    double m_usualSize;
};

}  // namespace workbench
