#pragma once

#include <QObject>
#include <QString>

#include "sdk/packages/IServiceStateMgr.h"

/// Whether the service answers, as the host sees it; it does where the host does not say.
class ServiceState : public QObject, private BASEPACKAGE::IServiceStateObserver {
    Q_OBJECT
    Q_PROPERTY(bool lost READ isLost NOTIFY changed)
    Q_PROPERTY(QString reason READ reason NOTIFY changed)

public:
    explicit ServiceState(QObject* parent = nullptr);
    ~ServiceState() override;

    bool isLost() const { return m_isLost; }
    /// Why it does not answer, for the user.
    const QString& reason() const { return m_reason; }

signals:
    void changed();
    /// It answers again.
    void back();

private:
    void OnServiceStateChanged(bool reachable) override;
    void look();

    bool m_isLost = false;
    QString m_reason;
};
