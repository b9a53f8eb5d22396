#pragma once

#include <chrono>

#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>

namespace workbench {

/// Asks the service every few seconds whether it is alive, without holding up anything.
class ServiceWatch : public QObject {
    Q_OBJECT

public:
    explicit ServiceWatch(std::chrono::milliseconds interval = std::chrono::seconds(3),
                          std::chrono::milliseconds timeout = std::chrono::seconds(2));

    /// "host:port"; asks at once.
    void watch(const QString& address);
    /// A request of somebody else failed; counts until the service is asked the next time.
    void reportTrouble(const QString& text);

signals:
    /// After every answer and every trouble; `text` says it for the user.
    void told(bool alive, const QString& text);

private:
    void ask();

    QString m_address;
    std::chrono::milliseconds m_timeout;
    QTimer m_timer;
    QNetworkAccessManager m_network;
};

}  // namespace workbench
