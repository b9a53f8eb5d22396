#pragma once

#include <chrono>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace workbench {

class PlatformClient;

/// Asks the service again and again how many messages are unread, without holding up anything. It asks only while the
/// user uses the workbench: every request is a use of the session, which would otherwise never end for want of use. A
/// session that has ended is left to the user's next action.
class UnreadWatch : public QObject {
    Q_OBJECT

public:
    explicit UnreadWatch(PlatformClient& client, std::chrono::milliseconds interval = std::chrono::seconds(30),
                         std::chrono::milliseconds leftAlone = std::chrono::minutes(5));

    /// What has been asked counts no more: somebody knows a newer number, or it was asked for another user.
    void dropPending();
    /// Drops what is pending and asks at once. Counts as a use of the workbench.
    void restart();
    /// While the service cannot be reached it is not asked; as soon as it can it is.
    void setReachable(bool reachable);

signals:
    /// After every answer with a number.
    void counted(int unread);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isInUse() const;
    void ask();

    PlatformClient& m_client;
    std::chrono::milliseconds m_leftAlone;
    QTimer m_timer;
    QElapsedTimer m_lastUse;
    bool m_reachable = false;
    bool m_asking = false;
    int m_round = 0;  // an answer to an earlier one is dropped
};

}  // namespace workbench
