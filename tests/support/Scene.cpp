#include "tests/support/Scene.h"

#include <algorithm>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlExpression>

namespace support {

Scene::Scene(const QByteArray& body, const QVariantMap& context, const QByteArray& imports) : QuickPilot(&m_window) {
    m_engine.addImportPath("qrc:/ui/imports");
    for (auto value = context.begin(); value != context.end(); ++value)
        m_engine.rootContext()->setContextProperty(value.key(), value.value());

    QQmlComponent component(&m_engine);
    component.setData("import QtQuick 2.12\nimport UI 1.0\n" + imports + body, QUrl("qrc:/scene.qml"));
    QObject* object = component.create();
    EXPECT_NE(object, nullptr) << component.errorString().toStdString();
    m_root = qobject_cast<QQuickItem*>(object);
    if (!m_root) {
        delete object;
        return;
    }
    m_window.resize(800, 600);
    m_root->setParentItem(m_window.contentItem());
    m_window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    m_window.requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
}

Scene::~Scene() {
    delete m_root;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QList<QQuickItem*> Scene::items(const ItemTest& wanted) const {
    QList<QQuickItem*> found;
    find([&](QQuickItem* item) {
        if (wanted(item))
            found.prepend(item);
        return false;
    });
    std::stable_sort(found.begin(), found.end(), [](const QQuickItem* one, const QQuickItem* other) {
        const QPointF a = one->mapToScene({});
        const QPointF b = other->mapToScene({});
        return a.y() != b.y() ? a.y() < b.y() : a.x() < b.x();
    });
    return found;
}

QStringList Scene::texts() const {
    QStringList texts;
    for (const QQuickItem* item :
         items([](QQuickItem* item) { return item->inherits("QQuickText") && item->width() > 0; }))
        texts += item->property("text").toString();
    return texts;
}

QVariant Scene::evaluate(const QString& expression) const {
    QQmlExpression evaluated(QQmlEngine::contextForObject(m_root), m_root, expression);
    QVariant value = evaluated.evaluate();
    EXPECT_FALSE(evaluated.hasError()) << evaluated.error().toString().toStdString();
    return value;
}

bool Scene::becomes(const QString& expression) const {
    return QTest::qWaitFor([&] { return evaluate(expression).toBool(); });
}

}  // namespace support
