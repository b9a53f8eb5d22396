#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QUrl>

class QDialog;
class QQuickView;
class QWidget;

/// A frameless modal dialog filled by a Qt Quick view, and what its title bar does to it. Every window has one.
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

    /// Runs the dialog modally; its view takes the keyboard as soon as it is shown.
    void run();
    /// Brings an open dialog to the front.
    void raise();

    void press();
    /// Moves the dialog by what the cursor moved since `press`; a maximised one stays where it is.
    void drag();
    void toggleMaximized();

private:
    QPointer<QDialog> m_dialog;
    QPointer<QQuickView> m_view;
    bool m_pressed = false;  // the second press of a double click ends with its toggling
    QPoint m_lastCursorPos;
    QPoint m_position;  // the dialog's own: what it reads back lags behind the window manager
};
