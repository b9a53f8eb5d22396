#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <QGuiApplication>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

/// Uses Qt Quick scenes as a person would: finds what is visible and sends it real mouse and key events.
namespace support {

using ItemTest = std::function<bool(QQuickItem*)>;

/// The first visible item below `root` that passes, depth first; children that lie on top come first. Delegates and
/// pop-ups are found too, which QObject::findChild misses.
inline QQuickItem* findItem(QQuickItem* root, const ItemTest& test) {
    if (!root || !root->isVisible())
        return nullptr;
    const auto children = root->childItems();
    for (auto child = children.crbegin(); child != children.crend(); ++child)
        if (QQuickItem* found = findItem(*child, test))
            return found;
    return test(root) ? root : nullptr;
}

inline ItemTest has(const char* property, const QVariant& value) {
    return [=](QQuickItem* item) { return item->property(property) == value; };
}

inline QPoint centreOf(const QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

/// The eyes and hands of a user on one window. A gesture ends when what it set off has happened and is drawn; one at
/// something that is not there is told by qCritical.
class QuickPilot {
public:
    explicit QuickPilot(QQuickWindow* window) : m_window(window) {}

    QQuickItem* find(const ItemTest& test) const { return findItem(m_window->contentItem(), test); }
    QQuickItem* find(const char* property, const QVariant& value) const { return find(has(property, value)); }
    QQuickItem* text(const QString& text) const { return find("text", text); }
    QQuickItem* button(const QString& toolTip) const { return find("tooltipText", toolTip); }
    /// The form's field with that caption: what shows its "value", and whose "field" takes the keyboard.
    QQuickItem* named(const QString& caption) const {
        return find([&](QQuickItem* item) {
            return item->property("name") == caption && item->property("mustfill").isValid() &&
                   item->property("value").isValid();
        });
    }
    /// Those of the texts that are not shown, and those with a "!" before them that are; empty when all is as told.
    std::string wrong(const QStringList& texts) const {
        QStringList found;
        for (const QString& wanted : texts)
            if (wanted.startsWith('!') == (text(wanted.mid(wanted.startsWith('!'))) != nullptr))
                found << wanted;
        return found.join(' ').toStdString();
    }

    QuickPilot& click(const QQuickItem* item, Qt::MouseButton button = Qt::LeftButton) {
        if (!item)
            qCritical("there is nothing to be clicked");
        else
            QTest::mouseClick(m_window, button, {}, centreOf(item));
        return settled();
    }
    QuickPilot& click(const QString& shown, Qt::MouseButton button = Qt::LeftButton) {
        return click(text(shown), button);
    }
    QuickPilot& press(const QString& toolTip) { return click(button(toolTip)); }
    QuickPilot& doubleClick(const QQuickItem* item) {
        hover(item);  // a tool tip goes
        QTest::mouseDClick(m_window, Qt::LeftButton, {}, centreOf(item));
        return settled();
    }
    /// In small steps, as a hand does.
    QuickPilot& drag(QPoint from, QPoint to) {
        QTest::mouseMove(m_window, from);
        QTest::mousePress(m_window, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 8; ++step)
            QTest::mouseMove(m_window, from + (to - from) * step / 8);
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, to);
        QTest::qWait(0);
        return *this;
    }
    QuickPilot& hover(const QQuickItem* item) {
        QTest::mouseMove(m_window, centreOf(item) - QPoint(1, 0));
        QTest::mouseMove(m_window, centreOf(item));
        return settled();
    }
    QuickPilot& key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(m_window, key, modifiers);
        return settled();
    }
    QuickPilot& type(const QString& text) {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, m_window, Qt::Key_unknown, QString(letter), Qt::NoModifier);
        return settled();
    }
    /// Text as an input method gives it: first a preedit, then the commit.
    QuickPilot& compose(const QString& preedit, const QString& committed) {
        QInputMethodEvent composing(preedit, {});
        QCoreApplication::sendEvent(m_window->focusObject(), &composing);
        QInputMethodEvent event;
        event.setCommitString(committed);
        QCoreApplication::sendEvent(m_window->focusObject(), &event);
        return settled();
    }
    /// Replaces what the focused field holds.
    QuickPilot& retype(const QString& text) { return key(Qt::Key_A, Qt::ControlModifier).compose("p", text); }
    QuickPilot& fill(QQuickItem* field, const QString& text) { return focus(field).retype(text); }
    QuickPilot& focus(QQuickItem* item) {
        if (item)
            item->forceActiveFocus();
        else
            qCritical("there is nothing to take the keyboard");
        return settled();
    }

    /// Lets everything pending happen. Views lay out and make their rows for a picture, however long that takes to
    /// come.
    static void settle() {
        QTest::qWait(20);
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
            if (!QTest::qWaitFor([&] { return *isDrawn || !view || !view->isExposed(); }, 60000))
                qCritical("a window is not drawn");
            QObject::disconnect(drawn);
        }
    }

private:
    QuickPilot& settled() {
        settle();
        return *this;
    }

    QQuickWindow* m_window;
};

}  // namespace support
