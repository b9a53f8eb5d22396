#pragma once

#include <functional>

#include <QCursor>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

/// Uses a Qt Quick scene as a person would: finds what is visible and sends it real mouse and key events.
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

inline QQuickItem* findByProperty(QQuickWindow* window, const char* property, const QVariant& value) {
    return findItem(window->contentItem(), [&](QQuickItem* item) { return item->property(property) == value; });
}

inline QQuickItem* findByText(QQuickWindow* window, const QString& text) {
    return findByProperty(window, "text", text);
}

/// An item of the QML type, such as "UxTextField", that passes `test` too.
inline QQuickItem* findByType(QQuickWindow* window, const QString& type, const ItemTest& test = {}) {
    return findItem(window->contentItem(), [&](QQuickItem* item) {
        const QString name = QString::fromLatin1(item->metaObject()->className());
        return name.startsWith(type + "_QMLTYPE") && (!test || test(item));
    });
}

inline QPoint centreOf(const QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

inline void click(QQuickItem* item, Qt::MouseButton button = Qt::LeftButton) {
    QCursor::setPos(item->window()->mapToGlobal(centreOf(item)));  // menus open where the cursor is
    QTest::mouseMove(item->window(), centreOf(item));
    QTest::mouseClick(item->window(), button, {}, centreOf(item));
}

inline void type(QQuickWindow* window, const QString& text) {
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

/// Text as an input method gives it to the focused field.
inline void commit(QQuickWindow* window, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(window->focusObject(), &event);
}

/// Replaces the text of the focused field.
inline void retype(QQuickWindow* window, const QString& text) {
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window, Qt::Key_Delete);
    commit(window, text);
}

/// The visible Qt Quick window that has an item passing `test`, or null.
inline QQuickWindow* findWindow(const ItemTest& test) {
    const auto windows = QGuiApplication::allWindows();
    for (QWindow* window : windows)
        if (auto* quick = qobject_cast<QQuickWindow*>(window))
            if (quick->isVisible() && findItem(quick->contentItem(), test))
                return quick;
    return nullptr;
}

}  // namespace support
