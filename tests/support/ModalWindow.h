#pragma once

#include <functional>

#include <QCursor>
#include <QDialog>
#include <QQuickView>

#include "tests/support/QuickPilot.h"

namespace support {

/// A modal window on the screen with the hands of a user.
class ModalWindow : public QuickPilot {
public:
    using Steps = std::function<void(ModalWindow&)>;

    /// Calls `open`, which runs a modal dialog around a Qt Quick view, does `steps` as soon as that is exposed, and
    /// closes it. Fails the test when nothing was shown, when it takes too long, and on every warning. Steps may run
    /// another window over the first.
    static void run(const std::function<void()>& open, const Steps& steps);
    /// Fails the test when `open` shows a modal dialog.
    static void expectNone(const std::function<void()>& open);

    QDialog* dialog() const { return m_dialog; }
    QQuickView* view() const { return m_view; }
    QObject* context(const char* name) const;

private:
    ModalWindow(QDialog* dialog, QQuickView* view) : QuickPilot(view), m_dialog(dialog), m_view(view) {}

    QDialog* m_dialog;
    QQuickView* m_view;
};

}  // namespace support
