#pragma once

#include <functional>

#include <QQuickView>
#include <QString>

class QDialog;
class QQuickItem;

namespace support {

/// A modal window on the screen with the hands of a user.
class ModalWindow {
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

    /// The visible item whose property has this value, delegates and pop-ups included; null without one.
    QQuickItem* find(const char* property, const QVariant& value) const;
    QQuickItem* text(const QString& text) const { return find("text", text); }
    QQuickItem* button(const QString& toolTip) const { return find("tooltipText", toolTip); }
    /// Clicks the middle of the item; a missing item fails the test.
    void click(const QQuickItem* item, Qt::MouseButton button = Qt::LeftButton);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    /// Text as an input method gives it: first a preedit, then the commit.
    void compose(const QString& preedit, const QString& committed);
    /// Lets everything pending happen.
    static void settle();

private:
    ModalWindow(QDialog* dialog, QQuickView* view) : m_dialog(dialog), m_view(view) {}

    QDialog* m_dialog;
    QQuickView* m_view;
};

}  // namespace support
