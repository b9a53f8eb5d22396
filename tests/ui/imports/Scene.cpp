#include "tests/ui/imports/Scene.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlExpression>
#include <QTest>

#include "tests/support/QuickPilot.h"

namespace support {
namespace {

QStringList warnings;

void collect(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg)
        warnings += message;
}

void walk(QQuickItem* item, const std::function<void(QQuickItem*)>& visit) {
    visit(item);
    const auto children = item->childItems();
    for (QQuickItem* child : children)
        walk(child, visit);
}

}  // namespace

Scene::Scene(const QByteArray& body, const QVariantMap& context, const QByteArray& imports) {
    warnings.clear();
    qInstallMessageHandler(collect);
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
    qInstallMessageHandler(nullptr);
    EXPECT_TRUE(warnings.isEmpty()) << warnings.join('\n').toStdString();
}

QList<QQuickItem*> Scene::items(const std::function<bool(QQuickItem*)>& wanted) const {
    QList<QQuickItem*> found;
    walk(m_window.contentItem(), [&](QQuickItem* item) {
        if (wanted(item))
            found += item;
    });
    return found;
}

QQuickItem* Scene::item(const QString& objectName) const {
    const auto found = items([&](QQuickItem* item) { return item->objectName() == objectName; });
    return found.isEmpty() ? nullptr : found.first();
}

QStringList Scene::texts() const {
    QStringList texts;
    auto found =
        items([](QQuickItem* item) { return item->isVisible() && item->inherits("QQuickText") && item->width() > 0; });
    std::stable_sort(found.begin(), found.end(), [](const QQuickItem* one, const QQuickItem* other) {
        const QPointF a = one->mapToScene({});
        const QPointF b = other->mapToScene({});
        return a.y() != b.y() ? a.y() < b.y() : a.x() < b.x();
    });
    for (const QQuickItem* item : found)
        texts += item->property("text").toString();
    return texts;
}

QVariant Scene::evaluate(const QString& expression) const {
    QQmlExpression evaluated(QQmlEngine::contextForObject(m_root), m_root, expression);
    QVariant value = evaluated.evaluate();
    EXPECT_FALSE(evaluated.hasError()) << evaluated.error().toString().toStdString();
    return value;
}

void Scene::click(const QQuickItem* item) {
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, centreOf(item));
}

void Scene::hover(const QQuickItem* item) {
    QTest::mouseMove(&m_window, centreOf(item) - QPoint(1, 0));
    QTest::mouseMove(&m_window, centreOf(item));
}

void Scene::type(const QString& text) {
    support::type(&m_window, text);
}

void Scene::press(int key) {
    QTest::keyClick(&m_window, static_cast<Qt::Key>(key));
}

}  // namespace support
