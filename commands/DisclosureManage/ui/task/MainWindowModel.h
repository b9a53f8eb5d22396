#pragma once

#include <QObject>
#include <QTimer>

#include "commands/DisclosureManage/ui/ServiceState.h"

/// What the main window shows around its panes: whether the service answers, and a line that tells quietly what was
/// done.
class MainWindowModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(ServiceState* service READ service CONSTANT)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)

public:
    explicit MainWindowModel(QObject* parent = nullptr) : QObject(parent) {
        m_fading.setSingleShot(true);
        m_fading.setInterval(kMessageMills);
        connect(&m_fading, &QTimer::timeout, this, [this] { show({}); });
    }

    ServiceState* service() { return &m_service; }
    const QString& message() const { return m_message; }

    /// Shows `text` for a while.
    void say(const QString& text) {
        show(text);
        m_fading.start();
    }

    /// The user wants everything to be read again.
    Q_INVOKABLE void refresh() { emit refreshWanted(); }

signals:
    void messageChanged();
    void refreshWanted();

private:
    static constexpr int kMessageMills = 10'000;

    void show(const QString& text) {
        m_message = text;
        emit messageChanged();
    }

    ServiceState m_service;
    QTimer m_fading;
    QString m_message;
};
