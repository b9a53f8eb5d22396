#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQmlPropertyMap>
#include <QSignalSpy>

#include "ui/common/ObservableCollection.h"

namespace {

class Person : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY nameChanged)
    Q_PROPERTY(int age MEMBER m_age CONSTANT)

public:
    Person(QString name, int age, QObject* parent) : QObject(parent), m_name(std::move(name)), m_age(age) {}

signals:
    void nameChanged();

private:
    QString m_name;
    int m_age;
};

class ObservableCollectionTest : public testing::Test {
protected:
    ObservableCollectionTest() : m_people(new ObservableCollection<Person*>(&m_owner)) {
        m_engine.rootContext()->setContextProperty("list", m_people);
    }
    Person* person(const QString& name, int age = 1) { return new Person(name, age, &m_owner); }
    QVariant script(const QString& code) {
        QQmlExpression expression(m_engine.rootContext(), nullptr, code);
        const QVariant result = expression.evaluate();
        EXPECT_FALSE(expression.hasError()) << expression.error().toString().toStdString();
        return result;
    }

    QObject m_owner;
    ObservableCollection<Person*>* m_people;
    QQmlEngine m_engine;
};

TEST_F(ObservableCollectionTest, RolesFollowTheFirstObject) {
    EXPECT_EQ(m_people->roleNames(), (QHash<int, QByteArray>{{0, "item"}}));
    m_people->append(person("甲", 30));
    EXPECT_EQ(m_people->roleNames(), (QHash<int, QByteArray>{{0, "item"}, {1, "objectName"}, {2, "name"}, {3, "age"}}));
    const QModelIndex row = m_people->index(0);
    EXPECT_EQ(m_people->data(row).value<QObject*>(), m_people->front());
    EXPECT_EQ(m_people->data(row, 2).toString(), "甲");
    EXPECT_EQ(m_people->data(row, 3).toInt(), 30);
    EXPECT_FALSE(m_people->data(row, 4).isValid());
    EXPECT_FALSE(m_people->data(row, -1).isValid());
    EXPECT_FALSE(m_people->data(QModelIndex(), 0).isValid());
}

// Texts, because the tester wants a text in role 0.
TEST_F(ObservableCollectionTest, EveryChangeIsAnnouncedWithTheNewLength) {
    ObservableCollection<QString> texts;
    const QAbstractItemModelTester tester(&texts, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy lengths(&texts, &ObservableCollectionMeta::lengthChanged);
    texts.clear();  // nothing happens to an empty list
    texts.destoryQObjectItems();
    texts.pop_front();
    texts.pop_back();
    EXPECT_TRUE(texts.front().isNull() && texts.back().isNull() && texts.at(3).isNull());
    texts.append("乙");
    texts.push_front("甲");
    texts.push_back("乙");
    texts.append("乙");
    texts.removeAll("乙");
    for (const int row : {7, -1, 0})
        texts.remove(row);
    texts.append("丙");
    texts.append("丁");
    texts.pop_front();
    texts.touch();
    EXPECT_EQ(texts.front(), "丁");
    EXPECT_EQ(texts.data(texts.index(0)), "丁");
    EXPECT_FALSE(texts.data(texts.index(0), 1).isValid());
    texts.clear();
    QVector<int> told;
    for (const auto& arguments : lengths)
        told.append(arguments.at(0).toInt());
    EXPECT_EQ(told, (QVector<int>{1, 2, 3, 4, 3, 2, 1, 0, 1, 2, 1, 0}));
}

TEST_F(ObservableCollectionTest, OnlyDestroyingDeletesTheObjects) {
    const QPointer<Person> first = person("甲");
    m_people->append(first);
    m_people->clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(first);
    m_people->append(first);
    m_people->destoryQObjectItems();
    EXPECT_EQ(m_people->size(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(first);
}

TEST_F(ObservableCollectionTest, SlotsMayDeleteElementsAndShortenTheList) {
    for (const auto signal : {&QAbstractItemModel::rowsAboutToBeRemoved, &QAbstractItemModel::rowsRemoved}) {
        const QPointer<Person> first = person("甲");
        const QPointer<Person> second = person("乙");
        m_people->append(first);
        m_people->append(second);
        const auto connection = QObject::connect(m_people, signal, [&] { delete second; });
        m_people->destoryQObjectItems();
        QObject::disconnect(connection);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(first);
    }

    ObservableCollection<int> numbers;
    for (const int number : {7, 1, 7, 2, 7})
        numbers.append(number);
    QVector<int> removed;
    QObject::connect(&numbers, &QAbstractItemModel::rowsRemoved,
                     [&](const QModelIndex&, int row) { removed.append(row); });
    QObject::connect(&numbers, &ObservableCollectionMeta::lengthChanged, [&](int length) {
        if (length == 4)
            numbers.pop_back();
    });
    numbers.removeAll(7);
    EXPECT_EQ(removed, (QVector<int>{0, 3, 1}));
    EXPECT_EQ(numbers.size(), 2);

    ObservableCollection<int> refilled;
    refilled.append(1);
    refilled.append(7);
    QObject::connect(&refilled, &QAbstractItemModel::rowsRemoved, [&] { refilled.push_front(7); });
    refilled.removeAll(7);
    EXPECT_EQ(refilled.size(), 2) << "the list is walked once, whatever comes back";
}

TEST_F(ObservableCollectionTest, PropertiesThatCameLaterAreRead) {
    QQmlPropertyMap map;
    map.insert("first", 1);
    static_cast<ObservableCollectionMeta*>(m_people)->append(QVariant::fromValue<QObject*>(&map));
    const int last = map.metaObject()->propertyCount();
    EXPECT_EQ(m_people->data(m_people->index(0), last).toInt(), 1);
    map.insert("second", 2);
    EXPECT_EQ(m_people->data(m_people->index(0), last + 1).toInt(), 2);
}

TEST_F(ObservableCollectionTest, ScriptsReadAndWrite) {
    m_people->append(person("甲"));
    m_people->append(person("乙"));
    QSignalSpy layouts(m_people, &QAbstractItemModel::layoutChanged);
    script("list.touch(); list.blockSignals(true); list.touch(); list.blockSignals(false)");
    EXPECT_EQ(layouts.size(), 1);
    m_engine.rootContext()->setContextProperty("third", person("丙"));
    const std::pair<const char*, const char*> rows[] = {
        {"list.at(1).name + list.front().name + list.back().name", "乙甲乙"},
        {"list.push_back(third); list.push_front(list.at(1)); list.length()", "4"},
        {"list.indexOf(third)", "3"},  // one object is the same whoever put it there
        {"list.back().name + list.data(list.index(3, 0), 2) + list.rowCount()", "丙丙4"},
        {"list.removeAll(third); list.contains(third)", "false"},
        {"list.pop_front(); list.pop_back(); list.size()", "1"},
        {"list.remove(0); list.isEmpty() && list.front() === undefined", "true"}};
    for (const auto& [code, result] : rows)
        EXPECT_EQ(script(code).toString(), result) << code;
}

TEST_F(ObservableCollectionTest, ObjectsOfSeveralClassesAreReadByTheirOwnProperties) {
    QQmlComponent component(&m_engine);
    component.setData("import QtQml 2.12; QtObject { property var any: 7 }", QUrl());
    auto* scripted = component.create();
    scripted->setParent(&m_owner);
    static_cast<ObservableCollectionMeta*>(m_people)->append(QVariant::fromValue(scripted));
    m_people->append(person("甲"));
    EXPECT_EQ(m_people->data(m_people->index(0), 2).toInt(), 7);
    EXPECT_EQ(m_people->data(m_people->index(1), 2).toString(), "甲");
    EXPECT_FALSE(m_people->data(m_people->index(0), 3).isValid());
    EXPECT_EQ(m_people->front(), nullptr) << "not a person";
}

TEST_F(ObservableCollectionTest, ScriptsDoNotTakeObjectsAway) {
    const QPointer<Person> alone = new Person("甲", 1, nullptr);
    m_people->append(alone);
    script("list.front().name");
    m_engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(alone);
    delete alone;
}

}  // namespace

#include "ObservableCollectionTest.moc"
