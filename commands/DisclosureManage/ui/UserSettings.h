#pragma once

#include <QObject>

/// What the screens keep for the user who is logged in, on this machine; "theUserSettings" in QML. Nothing is kept
/// where the host has no client configuration.
class UserSettings : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Empty when there is none.
    Q_INVOKABLE QString value(const QString& name) const;
    Q_INVOKABLE void setValue(const QString& name, const QString& value);
};
