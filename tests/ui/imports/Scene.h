#pragma once

#include <functional>
#include <ostream>

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

// How GoogleTest shows these types.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out) {
    PrintTo(texts.join(", "), out);
}
inline void PrintTo(const QVariant& value, std::ostream* out) {
    PrintTo(value.toString(), out);
}

namespace support {

/// A shown window with one piece of QML in it. Whatever the engine warns of while it lives fails the test.
class Scene {
public:
    /// `imports` come before `body`, whose root has to be an Item.
    explicit Scene(const QByteArray& body, const QVariantMap& context = {}, const QByteArray& imports = {});
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    QQuickItem* root() const { return m_root; }
    QQuickWindow& window() { return m_window; }
    /// The item or object with this objectName, delegates and pop-ups included.
    QQuickItem* item(const QString& objectName) const;
    QList<QQuickItem*> items(const std::function<bool(QQuickItem*)>& wanted) const;
    /// Every visible text of the scene, from top to bottom and from left to right.
    QStringList texts() const;
    QVariant evaluate(const QString& expression) const;

    void click(const QQuickItem* item);
    void hover(const QQuickItem* item);
    void type(const QString& text);
    void press(int key);

private:
    QQmlEngine m_engine;
    QQuickWindow m_window;
    QQuickItem* m_root = nullptr;
};

}  // namespace support
