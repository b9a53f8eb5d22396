#pragma once

#include <QComboBox>

namespace workbench {

/// A combo box that looks like the text fields beside it.
class FlatCombo : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace workbench
