#include "sdk/baseui/Waiting.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QThread>
#include <QTimerEvent>
#include <QWindow>

#include "sdk/baseui/InputGate.h"
#include "sdk/baseui/ProgressDialog.h"

namespace BASEUI {
namespace {

constexpr std::chrono::milliseconds kTick{5};

bool isOnUiThread() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) && QThread::currentThread() == qApp->thread();
}

/// A window asks to be painted by a timer of its own, which stays behind with all other timers.
void fireWindowTimers() {
    auto* dispatcher = QAbstractEventDispatcher::instance();
    const QWindowList all = QGuiApplication::allWindows();
    const QList<QPointer<QWindow>> windows(all.begin(), all.end());  // one may go while another is painted
    for (const QPointer<QWindow>& window : windows)
        for (const auto& timer : dispatcher->registeredTimers(window))
            if (window && dispatcher->remainingTime(timer.timerId) <= 0) {
                QTimerEvent due(timer.timerId);
                QCoreApplication::sendEvent(window, &due);
            }
}

/// What the user sees while a wait goes on: first the pointer, then the dialog.
class View {
public:
    explicit View(const Waiting& waiting) : m_waiting(waiting) { m_elapsed.start(); }
    ~View() {
        if (m_isShown)
            m_dialog->EndWaiting();
        if (m_isOwn)
            m_dialog->CloseProgressDialog();
        if (m_isBusy)
            QApplication::restoreOverrideCursor();
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// False once the user has cancelled.
    bool goOn() {
        if (!m_isBusy && m_elapsed.hasExpired(m_waiting.busyAfter.count())) {
            QApplication::setOverrideCursor(Qt::BusyCursor);
            m_isBusy = true;
        }
        if (!m_isShown && m_dialog && m_elapsed.hasExpired(m_waiting.dialogAfter.count()))
            show();
        if (m_isShown && !step())
            return false;
        fireWindowTimers();
        // Input stays with the window system until somebody is there to take it.
        QWidget* window = m_isShown ? m_dialog->GetWindow() : nullptr;
        m_gate.open(window);
        QCoreApplication::processEvents(window ? QEventLoop::X11ExcludeTimers
                                               : QEventLoop::X11ExcludeTimers | QEventLoop::ExcludeUserInputEvents);
        return true;
    }

private:
    void show() {
        const auto text = [](const char* source) {
            return QCoreApplication::translate("BASEUI::Waiting", source).toStdWString();
        };
        m_isShown = true;
        m_isOwn = !m_dialog->GetWindow();
        if (!m_isOwn)
            return;
        step();  // known before it is painted for the first time
        m_dialog->ShowProgressDialog(text("处理状态"), text("正在等待服务应答，请稍后..."));
    }
    bool step() {
        const Waiting::Amount amount = m_waiting.amount ? m_waiting.amount() : Waiting::Amount();
        return m_dialog->ShowWaiting(m_waiting.canCancel, amount.done, amount.total);
    }

    const Waiting& m_waiting;
    BIMScrollBar::KnSbInterface* const m_dialog = BIMScrollBar::KnSbInterface::Instance();
    InputGate m_gate;
    QElapsedTimer m_elapsed;
    bool m_isBusy = false;
    bool m_isShown = false;
    bool m_isOwn = false;  // the dialog was not there before
};

}  // namespace

bool Wait(const std::future<void>& end, const Waiting& waiting) {
    if (!isOnUiThread()) {
        end.wait();
        return true;
    }
    View view(waiting);
    while (end.wait_for(kTick) != std::future_status::ready)
        if (!view.goOn())
            return false;
    return true;
}

}  // namespace BASEUI
