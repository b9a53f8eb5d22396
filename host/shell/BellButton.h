#pragma once

#include <QToolButton>

namespace workbench {

/// A bell with the number of unread messages on it.
class BellButton : public QToolButton {
    Q_OBJECT

public:
    explicit BellButton(QWidget* parent = nullptr);

    /// 0 shows the bell alone; above 99 it shows "99+".
    void setUnread(int count);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_unread = 0;
};

}  // namespace workbench
