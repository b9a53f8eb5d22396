#pragma once

#include <type_traits>

#include <QObject>

#include "ui/common/ObservableCollectionMeta.h"

/// `ObservableCollectionMeta` as the view models see it, over elements of one type: pointers to a QObject class, or
/// values.
template <class T>
class ObservableCollection : public ObservableCollectionMeta {
public:
    using ObservableCollectionMeta::ObservableCollectionMeta;

    void push_front(const T& value) { ObservableCollectionMeta::push_front(toVariant(value)); }
    void push_back(const T& value) { ObservableCollectionMeta::push_back(toVariant(value)); }
    void append(const T& value) { ObservableCollectionMeta::append(toVariant(value)); }
    void removeAll(const T& value) { ObservableCollectionMeta::removeAll(toVariant(value)); }
    bool contains(const T& value) const { return ObservableCollectionMeta::contains(toVariant(value)); }
    int indexOf(const T& value) const { return ObservableCollectionMeta::indexOf(toVariant(value)); }
    /// `front`, `back` and `at` are null or empty where there is no element, or one of another type.
    T front() const { return fromVariant(ObservableCollectionMeta::front()); }
    T back() const { return fromVariant(ObservableCollectionMeta::back()); }
    T at(int index) const { return fromVariant(ObservableCollectionMeta::at(index)); }

private:
    static QVariant toVariant(const T& value) {
        if constexpr (std::is_pointer_v<T>)
            return QVariant::fromValue(static_cast<QObject*>(value));
        else
            return QVariant::fromValue(value);
    }
    static T fromVariant(const QVariant& value) {
        if constexpr (std::is_pointer_v<T>)
            return qobject_cast<T>(value.value<QObject*>());
        else
            return value.value<T>();
    }
};
