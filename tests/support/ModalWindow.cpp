#include "tests/support/ModalWindow.h"

#include <gtest/gtest.h>
#include <memory>
#include <utility>

#include <QApplication>
#include <QDialog>
#include <QInputMethodEvent>
#include <QPointer>
#include <QQmlContext>
#include <QQuickItem>
#include <QTest>
#include <QTimer>

#include "tests/support/QuickPilot.h"

namespace support {
namespace {

constexpr int kPoll = 5;          // milliseconds
constexpr int kPatience = 60000;  // milliseconds

QStringList g_warnings;

void NoteWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    // Qt's own: what the platform cannot do, an animation that outlives its window by a moment, a combo box that opens
    // its list from a view inside a dialog, and a row of a table that still looks at its list while it goes.
    const bool isQts = message.startsWith(QLatin1String("This plugin does not support")) ||
                       message.startsWith(QLatin1String("QUnifiedTimer::stopAnimationDriver")) ||
                       message.endsWith(QLatin1String("must be a top level window.")) ||
                       (message.contains(QLatin1String("/Controls/Private/BasicTableView.qml")) &&
                        message.endsWith(QLatin1String("Cannot read property 'activeFocus' of null")));
    if (type != QtDebugMsg && type != QtInfoMsg && !isQts)
        g_warnings << message;
}

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

QQuickItem* FindIn(QQuickItem* item, const char* property, const QVariant& value) {
    if (item->isVisible() && item->property(property) == value)
        return item;
    const QList<QQuickItem*> children = item->childItems();
    for (QQuickItem* child : children)
        if (QQuickItem* found = FindIn(child, property, value))
            return found;
    return nullptr;
}

}  // namespace

void ModalWindow::run(const std::function<void()>& open, const Steps& steps) {
    bool done = false;
    const QPointer<QWidget> below = QApplication::activeModalWidget();
    const QStringList warningsBefore = std::exchange(g_warnings, {});
    const QtMessageHandler before = qInstallMessageHandler(NoteWarning);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QQuickView* view = dialog ? ViewOf(dialog) : nullptr;
        if (!view || dialog == below || !view->isExposed())
            return;
        poll.stop();
        EXPECT_TRUE(QTest::qWaitFor([view] { return QGuiApplication::focusWindow() == view; }, kPatience))
            << "the view has no keyboard";
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
    qInstallMessageHandler(before);
    EXPECT_TRUE(g_warnings.isEmpty()) << g_warnings.join('\n').toStdString();
    g_warnings = warningsBefore;
    if (below && below->isVisible()) {  // it may close with the window
        EXPECT_TRUE(
            QTest::qWaitFor([view = ViewOf(below)] { return QGuiApplication::focusWindow() == view; }, kPatience))
            << "the window below has no keyboard";
    }
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

QQuickItem* ModalWindow::find(const char* property, const QVariant& value) const {
    return FindIn(m_view->contentItem(), property, value);
}

void ModalWindow::click(const QQuickItem* item, Qt::MouseButton button) {
    ASSERT_TRUE(item);
    QTest::mouseClick(m_view, button, {}, centreOf(item));
    settle();
}

void ModalWindow::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(m_view, key, modifiers);
    settle();
}

void ModalWindow::type(const QString& text) {
    support::type(m_view, text);
    settle();
}

void ModalWindow::compose(const QString& preedit, const QString& committed) {
    ASSERT_TRUE(m_view->focusObject());
    QInputMethodEvent composing(preedit, {});
    QCoreApplication::sendEvent(m_view->focusObject(), &composing);
    commit(m_view, committed);
    settle();
}

void ModalWindow::settle() {
    QTest::qWait(20);
    // Views lay out and make their rows for a picture, however long that takes to come.
    QList<QPointer<QQuickWindow>> views;  // any of them may go meanwhile
    for (QWindow* window : QGuiApplication::allWindows())
        views << qobject_cast<QQuickWindow*>(window);
    for (const QPointer<QQuickWindow>& view : std::as_const(views)) {
        if (!view || !view->isExposed())
            continue;
        const auto isDrawn = std::make_shared<bool>(false);  // a second picture may be told of later
        const auto drawn = QObject::connect(
            view, &QQuickWindow::frameSwapped, view, [isDrawn] { *isDrawn = true; }, Qt::QueuedConnection);
        view->update();
        EXPECT_TRUE(QTest::qWaitFor([&] { return *isDrawn || !view || !view->isExposed(); }, kPatience));
        QObject::disconnect(drawn);
    }
}

}  // namespace support
