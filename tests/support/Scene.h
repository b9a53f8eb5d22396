#pragma once

#include <ostream>

#include <QQmlEngine>
#include <QStringList>

#include "tests/support/NoWarnings.h"
#include "tests/support/QuickPilot.h"

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
class Scene : public QuickPilot {
public:
    /// `imports` come before `body`, whose root has to be an Item.
    explicit Scene(const QByteArray& body, const QVariantMap& context = {}, const QByteArray& imports = {});
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    QQuickItem* root() const { return m_root; }
    QQuickWindow& window() { return m_window; }
    /// The visible item with this objectName.
    QQuickItem* item(const QString& objectName) const { return find("objectName", objectName); }
    /// Every visible item that passes, from top to bottom and from left to right.
    QList<QQuickItem*> items(const ItemTest& wanted) const;
    /// Every visible text of the scene.
    QStringList texts() const;
    QVariant evaluate(const QString& expression) const;
    /// Whether the expression is true, at once or soon.
    bool becomes(const QString& expression) const;

private:
    NoWarnings m_watch;
    QQmlEngine m_engine;
    QQuickWindow m_window;
    QQuickItem* m_root = nullptr;
};

}  // namespace support
