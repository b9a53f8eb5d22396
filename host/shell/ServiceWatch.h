#pragma once

#include <chrono>

#include <QObject>
#include <QThread>

namespace workbench {

/// Asks the service every few seconds whether it is alive. It does so on a thread of its own, so that it goes on while
/// the UI thread waits for an answer.
class ServiceWatch : public QObject {
    Q_OBJECT

public:
    /// Who begins to be silent is found out after both times at the latest.
    explicit ServiceWatch(std::chrono::milliseconds interval = std::chrono::seconds(2),
                          std::chrono::milliseconds timeout = std::chrono::seconds(2));
    ~ServiceWatch() override;

    /// "host:port"; asks at once.
    void watch(const QString& address);
    /// A request of somebody else failed; counts until the service is asked the next time.
    void reportTrouble(const QString& text);

signals:
    /// On the thread of this object, after every answer and every trouble; `text` says it for the user.
    void told(bool alive, const QString& text);

private:
    class Asker;

    void take(const QString& address, int status, bool isGood, bool isLate);

    QString m_address;
    QThread m_thread;
    Asker* m_asker;  // lives in m_thread, deleted with its end
};

}  // namespace workbench
