#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QVariant>
#include <QVector>

/// A flat list for QML: an item model for views and a scriptable array in one. Elements are objects or plain values; an
/// object is not deleted with the list, only by `destoryQObjectItems`. GUI thread only.
class ObservableCollectionMeta : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// "item" for the element itself; where the first element is an object, also one role for each of its properties.
    QHash<int, QByteArray> roleNames() const override;

signals:
    void lengthChanged(int length);

public:
    /// Hides `QObject::blockSignals`, which QML could not call.
    Q_INVOKABLE bool blockSignals(bool block);
    /// Has the views read every row again.
    Q_INVOKABLE void touch();
    Q_INVOKABLE bool isEmpty() const { return m_items.isEmpty(); }
    Q_INVOKABLE int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Role 0 is the element, role n + 1 the n-th property of an object, empty where that cannot be read.
    Q_INVOKABLE QVariant data(const QModelIndex& index, int role = 0) const override;
    Q_INVOKABLE void push_front(const QVariant& value);
    Q_INVOKABLE void push_back(const QVariant& value);
    Q_INVOKABLE void append(const QVariant& value);
    /// Removes every element equal to `value`, from the front.
    Q_INVOKABLE void removeAll(const QVariant& value);
    /// A position outside the list is ignored.
    Q_INVOKABLE void remove(int index);
    Q_INVOKABLE int size() const { return m_items.size(); }
    Q_INVOKABLE int length() const { return m_items.size(); }
    Q_INVOKABLE bool contains(const QVariant& value) const;
    /// -1 when absent.
    Q_INVOKABLE int indexOf(const QVariant& value) const;
    /// `front`, `back` and `at` are empty where there is no element.
    Q_INVOKABLE QVariant front() const { return at(0); }
    Q_INVOKABLE QVariant back() const { return at(size() - 1); }
    /// Empties the list and deletes its objects later; spelled so.
    Q_INVOKABLE void destoryQObjectItems();
    Q_INVOKABLE void clear();
    Q_INVOKABLE void pop_front() { remove(0); }
    Q_INVOKABLE void pop_back() { remove(size() - 1); }
    Q_INVOKABLE QVariant at(int index) const { return m_items.value(index); }

private:
    void insert(int row, const QVariant& value);
    void forgetClass();
    void learn(const QMetaObject* meta) const;

    QList<QVariant> m_items;  // an object is held as QObject*, whatever its class
    // The class read last and how its properties are read: asking for that costs more than the reading. Forgotten with
    // every removal, because a class made by QML goes with its object.
    struct Property {
        int type = QMetaType::UnknownType;  // or one that cannot be read
        int index = -1;
        void (*call)(QObject*, QMetaObject::Call, int,
                     void**) = nullptr;  // null where the object itself has to be asked

        void read(const QObject* object, void* value, QVariant* variant) const;
    };
    mutable const QMetaObject* m_class = nullptr;
    mutable QVector<Property> m_properties;
};
