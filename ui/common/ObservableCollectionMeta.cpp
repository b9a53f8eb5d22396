#include "ui/common/ObservableCollectionMeta.h"

#include <QMetaProperty>
#include <QQmlEngine>

namespace {

bool holdsObject(const QVariant& value) {
    return value.userType() == QMetaType::QObjectStar;
}

QObject* objectOf(const QVariant& value) {
    return holdsObject(value) ? *static_cast<QObject* const*>(value.constData()) : nullptr;
}

/// Objects compare equal only when both sides are held by the same type.
QVariant normalised(const QVariant& value) {
    if (holdsObject(value) || !QMetaType(value.userType()).flags().testFlag(QMetaType::PointerToQObject))
        return value;
    return QVariant::fromValue(value.value<QObject*>());
}

}  // namespace

QHash<int, QByteArray> ObservableCollectionMeta::roleNames() const {
    QHash<int, QByteArray> names{{0, "item"}};
    if (const QObject* first = objectOf(front())) {
        const QMetaObject* meta = first->metaObject();
        for (int i = 0; i < meta->propertyCount(); ++i)
            names.insert(i + 1, meta->property(i).name());
    }
    return names;
}

bool ObservableCollectionMeta::blockSignals(bool block) {
    return QObject::blockSignals(block);
}

void ObservableCollectionMeta::touch() {
    emit layoutAboutToBeChanged();
    emit layoutChanged();
}

int ObservableCollectionMeta::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : size();
}

QVariant ObservableCollectionMeta::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= size())
        return {};
    const QVariant& item = m_items.at(index.row());
    if (role == 0)
        return item;
    const QObject* object = role > 0 ? objectOf(item) : nullptr;
    if (!object)
        return {};
    // A class that grows as it is used, as property maps do, stays at its address and keeps what it had.
    if (const QMetaObject* meta = object->metaObject(); meta != m_class || role > m_properties.size())
        learn(meta);
    if (role > m_properties.size())
        return {};
    const Property& property = m_properties.at(role - 1);
    if (property.type == QMetaType::QString) {  // most are, and a variant of a text is made at once
        QString text;
        property.read(object, &text, nullptr);
        return text;
    }
    if (property.type == QMetaType::UnknownType)
        return {};
    QVariant value(property.type, nullptr);
    property.read(object, property.type == QMetaType::QVariant ? &value : value.data(), &value);
    return value;
}

void ObservableCollectionMeta::Property::read(const QObject* object, void* value, QVariant* variant) const {
    auto* target = const_cast<QObject*>(object);
    int status = -1;
    void* arguments[] = {value, variant, &status};
    if (call)
        call(target, QMetaObject::ReadProperty, index, arguments);
    else
        QMetaObject::metacall(target, QMetaObject::ReadProperty, index, arguments);
}

void ObservableCollectionMeta::learn(const QMetaObject* meta) const {
    m_class = meta;
    m_properties.clear();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        const auto call = property.enclosingMetaObject()->d.static_metacall;
        m_properties.append({property.isReadable() ? property.userType() : QMetaType::UnknownType,
                             call ? property.relativePropertyIndex() : i, call});
    }
}

void ObservableCollectionMeta::push_front(const QVariant& value) {
    insert(0, value);
}

void ObservableCollectionMeta::push_back(const QVariant& value) {
    insert(size(), value);
}

void ObservableCollectionMeta::append(const QVariant& value) {
    insert(size(), value);
}

void ObservableCollectionMeta::insert(int row, const QVariant& value) {
    const QVariant item = normalised(value);
    // What an invokable returns to QML belongs to its garbage collector unless it has a parent or is told otherwise.
    if (QObject* object = objectOf(item); object && !object->parent())
        QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
    beginInsertRows(QModelIndex(), row, row);
    m_items.insert(row, item);
    endInsertRows();
    emit lengthChanged(size());
}

void ObservableCollectionMeta::removeAll(const QVariant& value) {
    const QVariant item = normalised(value);
    // The size is asked for anew each time, because a slot may have changed the list.
    for (int row = 0; row < size();) {
        if (m_items.at(row) == item)
            remove(row);
        else
            ++row;
    }
}

void ObservableCollectionMeta::remove(int index) {
    if (index < 0 || index >= size())
        return;
    beginRemoveRows(QModelIndex(), index, index);
    forgetClass();
    m_items.removeAt(index);
    endRemoveRows();
    emit lengthChanged(size());
}

bool ObservableCollectionMeta::contains(const QVariant& value) const {
    return m_items.contains(normalised(value));
}

int ObservableCollectionMeta::indexOf(const QVariant& value) const {
    return m_items.indexOf(normalised(value));
}

void ObservableCollectionMeta::destoryQObjectItems() {
    // Ahead of the signals, whose slots may delete elements themselves.
    for (const QVariant& item : qAsConst(m_items))
        if (QObject* object = objectOf(item))
            object->deleteLater();
    clear();
}

void ObservableCollectionMeta::clear() {
    if (isEmpty())
        return;
    beginRemoveRows(QModelIndex(), 0, size() - 1);
    forgetClass();
    m_items.clear();
    endRemoveRows();
    emit lengthChanged(0);
}

void ObservableCollectionMeta::forgetClass() {
    m_class = nullptr;
}
