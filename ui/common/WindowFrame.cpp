#include "ui/common/WindowFrame.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QMetaMethod>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include "ui/common/WindowEdges.h"

namespace {

constexpr int kKeyboardTries = 100;
constexpr int kKeyboardPause = 50;  // milliseconds

/// Gives the window the keyboard unless a modal dialog lies over it. A window manager hears only of top-level windows
/// and passes the keyboard on by itself meanwhile, and a display ignores a request that bears the time of an older
/// event, so it is asked repeatedly.
void askForKeyboard(QWindow* window, int tries = kKeyboardTries) {
    if (!window || !window->isVisible() || QGuiApplication::focusWindow() == window || tries == 0)
        return;
    QWindow* top = window;
    while (top->parent())
        top = top->parent();
    const QWindow* modal = QGuiApplication::modalWindow();
    if (modal && modal != top)
        return;
    if (tries == kKeyboardTries / 2 && window != top) {
        // On a busy display Qt may have missed that the window has the keyboard; it is told anew when the display takes
        // it away, as from a window that is hidden.
        window->hide();
        window->show();
    }
    (QGuiApplication::focusWindow() == top ? window : top)->requestActivate();
    QTimer::singleShot(kKeyboardPause, window, [window, tries] { askForKeyboard(window, tries - 1); });
}

/// A dialog that asks before it goes: Escape, the title bar, the window manager and `close` all end here.
class AskingDialog : public QDialog {
public:
    AskingDialog(QWidget* parent, const std::function<bool()>& mayClose) : QDialog(parent), m_mayClose(mayClose) {}

    void reject() override {
        if (!m_mayClose || m_mayClose())
            QDialog::reject();
    }

private:
    const std::function<bool()>& m_mayClose;
};

}  // namespace

WindowFrame::WindowFrame(QWidget* parent) : m_dialog(new AskingDialog(parent, m_mayClose)), m_view(new QQuickView) {
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    QWidget* container = QWidget::createWindowContainer(m_view, m_dialog);
    container->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, m_view,
                     [this](const QWindow* window) { noticeFocus(window); });
    m_view->engine()->addImportPath(QStringLiteral("qrc:/ui/imports"));
    auto* layout = new QVBoxLayout(m_dialog);
    layout->addWidget(container);
    layout->setContentsMargins(0, 0, 0, 0);
    m_dialog->setWindowFlags(m_dialog->windowFlags() | Qt::FramelessWindowHint);
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    new WindowEdges(*m_dialog, *m_view);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
}

WindowFrame::~WindowFrame() {
    delete m_dialog;
}

QDialog* WindowFrame::dialog() const {
    return m_dialog;
}

QQuickView* WindowFrame::view() const {
    return m_view;
}

QSize WindowFrame::shareOf(const QWidget* parent) {
    constexpr double kShare = 0.8;
    const QSize whole = parent ? parent->size() : QGuiApplication::primaryScreen()->availableSize();
    return {static_cast<int>(whole.width() * kShare), static_cast<int>(whole.height() * kShare)};
}

void WindowFrame::load(const QUrl& source) {
    m_view->setSource(source);
    if (const QQuickItem* root = m_view->rootObject(); root)
        m_dialog->setWindowTitle(root->property("title").toString());
}

void WindowFrame::connectRoot(const char* signal, QObject* receiver, const char* slot, Presence presence) {
    const QQuickItem* root = m_view ? m_view->rootObject() : nullptr;
    if (!root)
        return;
    const int from = root->metaObject()->indexOfSignal(QMetaObject::normalizedSignature(signal));
    const int to = receiver->metaObject()->indexOfMethod(QMetaObject::normalizedSignature(slot));
    if (from >= 0 && to >= 0)
        QObject::connect(root, root->metaObject()->method(from), receiver, receiver->metaObject()->method(to));
    else if (presence == Presence::Required)
        qWarning().noquote() << m_view->source().toString() << "is not connected:" << signal << "->"
                             << receiver->metaObject()->className() << slot;
}

void WindowFrame::connectClose() {
    connectRoot("close()", m_dialog, "close()");
}

void WindowFrame::connectTitleBar(QObject* receiver) {
    connectRoot("toggleMaximized()", receiver, "slotToggleMaximized()");
    connectRoot("titlebarPressed()", receiver, "onTitlebarPressed()");
    connectRoot("titlebarPositionChanged()", receiver, "onTitlebarPositionChanged()");
    connectRoot("titlebarDbClick()", receiver, "onTitleBarDoubleClicked()");
}

void WindowFrame::setMayClose(std::function<bool()> mayClose) {
    m_mayClose = std::move(mayClose);
}

void WindowFrame::belongTo(const QWidget* opener) {
    m_dialog->winId();  // makes its window
    m_dialog->windowHandle()->setTransientParent(opener->windowHandle());
    m_dialog->adjustSize();
    QRect place(QPoint(), m_dialog->size());
    place.moveCenter(opener->frameGeometry().center());
    const QRect room = opener->screen()->availableGeometry();
    place.moveRight(qMin(place.right(), room.right()));
    place.moveBottom(qMin(place.bottom(), room.bottom()));
    m_dialog->move(qMax(place.left(), room.left()), qMax(place.top(), room.top()));
}

void WindowFrame::noticeFocus(const QWindow* window) {
    const bool isFrame = window && m_dialog && window == m_dialog->windowHandle();
    // A click on a blocked window passes the keyboard to the dialog that blocks it, while its view still has it.
    const bool isBesideClick = isFrame && m_hadKeyboard && !m_dialog->frameGeometry().contains(QCursor::pos());
    m_hadKeyboard = window == m_view;
    if (isBesideClick) {
        m_dialog->raise();
        if (QQuickItem* root = m_view->rootObject(); root && root->metaObject()->indexOfMethod("mark()") >= 0)
            QMetaObject::invokeMethod(root, "mark");
    }
    if (window) {
        m_wasOver = !isFrame && !m_hadKeyboard;
        m_over = window;
    }
    // The dialog may be given the keyboard at any time, also after the view has had it; and a box over it that closes
    // may leave it to nobody.
    const bool isBoxClosed = !window && m_wasOver && (!m_over || !m_over->isVisible());
    if (isFrame || isBoxClosed)
        askForKeyboard(m_view);
}

void WindowFrame::run() {
    const QPointer<QWindow> before = QGuiApplication::focusWindow();
    const QWidget* modal = QApplication::activeModalWidget();
    if (const QWidget* opener = modal ? modal : m_dialog->parentWidget())
        belongTo(opener->window());
    m_dialog->exec();
    // The window manager gives the keyboard to the dialog's parent, which need not be where it came from.
    askForKeyboard(before);
}

void WindowFrame::raise() {
    if (!m_dialog)
        return;
    m_dialog->raise();
    m_dialog->activateWindow();
    m_view->requestActivate();
}

void WindowFrame::press() {
    m_pressed = true;
    m_lastCursorPos = QCursor::pos();
    m_position = m_dialog ? m_dialog->pos() : QPoint();
}

void WindowFrame::drag() {
    if (!m_dialog || !m_pressed || m_dialog->isMaximized())
        return;
    const QPoint cursor = QCursor::pos();
    m_position += cursor - m_lastCursorPos;
    m_lastCursorPos = cursor;
    m_dialog->move(m_position);
}

void WindowFrame::toggleMaximized() {
    if (!m_dialog)
        return;
    m_pressed = false;
    if (m_dialog->isMaximized())
        m_dialog->showNormal();
    else
        m_dialog->showMaximized();
}
