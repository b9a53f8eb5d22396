#include "tests/support/ModalWindow.h"

#include <QApplication>
#include <QQmlContext>
#include <QTimer>

#include "tests/support/NoWarnings.h"

namespace support {
namespace {

constexpr int kPoll = 5;          // milliseconds
constexpr int kPatience = 60000;  // milliseconds

/// Closes the modal windows that lie over `below`; all where that is null.
void CloseAll(const QWidget* below) {
    for (QWidget* modal = QApplication::activeModalWidget(); modal && modal != below;
         modal = QApplication::activeModalWidget())
        if (!modal->close())
            modal->hide();
}

/// The view inside the dialog: the one that is a child of the dialog's window.
QQuickView* ViewOf(const QWidget* dialog) {
    const QWindowList windows = QGuiApplication::allWindows();
    for (QWindow* window : windows)
        if (auto* view = qobject_cast<QQuickView*>(window); view && view->parent() == dialog->windowHandle())
            return view;
    return nullptr;
}

void ExpectKeyboardIn(const QWidget* dialog) {
    const auto hasKeyboard = [view = ViewOf(dialog)] { return QGuiApplication::focusWindow() == view; };
    EXPECT_TRUE(QTest::qWaitFor(hasKeyboard, kPatience)) << "the view has no keyboard";
}

}  // namespace

void ModalWindow::run(const std::function<void()>& open, const Steps& steps) {
    bool done = false;
    const QPointer<QWidget> below = QApplication::activeModalWidget();
    {
        const NoWarnings watch;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QQuickView* view = dialog ? ViewOf(dialog) : nullptr;
            if (!view || dialog == below || !view->isExposed())
                return;
            poll.stop();
            ExpectKeyboardIn(dialog);
            done = true;
            ModalWindow window(dialog, view);
            steps(window);
            CloseAll(below);
        });
        poll.start(kPoll);
        QTimer::singleShot(kPatience, &poll, [below] {
            ADD_FAILURE() << "a modal window took too long";
            CloseAll(below);
        });
        open();
        EXPECT_TRUE(done) << "no modal window was shown";
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    if (below && below->isVisible())  // it may close with the window
        ExpectKeyboardIn(below);
}

void ModalWindow::expectNone(const std::function<void()>& open) {
    const int windows = QGuiApplication::allWindows().size();
    QTimer::singleShot(0, [] {
        if (QApplication::activeModalWidget()) {
            ADD_FAILURE() << "a modal window was shown";
            CloseAll(nullptr);
        }
    });
    open();
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
    settle();
}

QObject* ModalWindow::context(const char* name) const {
    return m_view->rootContext()->contextProperty(name).value<QObject*>();
}

}  // namespace support
