#include "host/platform/UnreadWatch.h"

#include <QCoreApplication>
#include <QEvent>

#include "host/platform/PlatformClient.h"

namespace workbench {

UnreadWatch::UnreadWatch(PlatformClient& client, std::chrono::milliseconds interval,
                         std::chrono::milliseconds leftAlone)
    : m_client(client), m_leftAlone(leftAlone) {
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &UnreadWatch::ask);
    qApp->installEventFilter(this);
}

void UnreadWatch::dropPending() {
    ++m_round;
    m_asking = false;
}

void UnreadWatch::restart() {
    dropPending();
    m_lastUse.start();
    ask();
}

void UnreadWatch::setReachable(bool reachable) {
    if (reachable == m_reachable)
        return;
    m_reachable = reachable;
    ask();
}

bool UnreadWatch::eventFilter(QObject*, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::Wheel ||
        type == QEvent::TouchBegin) {
        const bool wasInUse = isInUse();
        m_lastUse.start();
        if (!wasInUse)
            ask();
    }
    return false;
}

bool UnreadWatch::isInUse() const {
    return m_lastUse.isValid() && !m_lastUse.hasExpired(m_leftAlone.count());
}

void UnreadWatch::ask() {
    if (m_asking || !m_reachable || !m_client.hasSession() || !isInUse())
        return;
    m_asking = true;
    m_timer.start();
    m_client.getLater("/rs/platform/messages/unread", this, [this, round = m_round](const Answer& answer) {
        if (round != m_round)
            return;
        m_asking = false;
        const QJsonValue count = answer.result.toObject()["unreadCount"];
        if (answer.ok() && count.toInt(-1) >= 0)
            emit counted(count.toInt());
    });
}

}  // namespace workbench
