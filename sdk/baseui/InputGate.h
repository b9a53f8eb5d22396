#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace BASEUI {

/// While it lives, neither input nor the closing of a window nor a timer reaches anything but one window. It stands
/// open while somebody runs an event loop of his own above it: a dialog has to be usable.
class InputGate : public QObject {
public:
    InputGate();

    /// Null shuts out everything.
    void open(QWidget* window) { m_open = window; }

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QPointer<QWidget> m_open;  // may go while events are handled
    int m_loopLevel;
};

}  // namespace BASEUI
