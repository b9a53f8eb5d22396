#pragma once

#include <functional>

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QUrl>

class QDialog;
class QQuickView;
class QWidget;
class QWindow;

/// A frameless modal dialog filled by a Qt Quick view, and what its title bar and its edges do to it. Every window has
/// one.
class WindowFrame {
public:
    /// `parent` may be null. The dialog belongs to the frame until `run` has ended, which deletes it.
    explicit WindowFrame(QWidget* parent);
    ~WindowFrame();
    WindowFrame(const WindowFrame&) = delete;
    WindowFrame& operator=(const WindowFrame&) = delete;

    /// Null once the dialog is gone, and the view with it.
    QDialog* dialog() const;
    QQuickView* view() const;

    /// 0.8 times the size of `parent`, or of the screen without one, in whole pixels.
    static QSize shareOf(const QWidget* parent);

    /// Loads the page, whose `title` becomes the dialog's; context properties must have been set.
    void load(const QUrl& source);
    enum class Presence { Required, Optional };
    /// Connects the root item's `signal` with the `slot` of `receiver`, both written as "name(types)". Where one of
    /// them is missing nothing is connected, and a warning tells so unless the connection is optional.
    void connectRoot(const char* signal, QObject* receiver, const char* slot, Presence presence = Presence::Required);
    /// Connects the root item's `close` with the dialog.
    void connectClose();
    /// Connects the title bar's signals with the slots of the usual names in `receiver`.
    void connectTitleBar(QObject* receiver);

    /// Asked whenever the dialog is about to be closed, in whatever way; false leaves it open. Without it every dialog
    /// closes.
    void setMayClose(std::function<bool()> mayClose);
    /// Runs the dialog modally over the middle of the window that opened it, which it stays above; its view takes the
    /// keyboard as soon as it is shown. When something behind it is clicked the root item's `mark`, if it has one,
    /// shows which window waits.
    void run();
    /// Brings an open dialog to the front.
    void raise();

    void press();
    /// Moves the dialog by what the cursor moved since `press`; a maximised one stays where it is.
    void drag();
    void toggleMaximized();

private:
    void belongTo(const QWidget* opener);
    void noticeFocus(const QWindow* window);

    QPointer<QDialog> m_dialog;
    QPointer<QQuickView> m_view;
    bool m_pressed = false;  // the second press of a double click ends with its toggling
    QPoint m_lastCursorPos;
    std::function<bool()> m_mayClose;
    QPointer<const QWindow> m_over;  // had the keyboard last
    bool m_wasOver = false;          // and was another one than the dialog's
    bool m_hadKeyboard = false;      // the view, before the keyboard went where it is
    QPoint m_position;               // the dialog's own: what it reads back lags behind the window manager
};
