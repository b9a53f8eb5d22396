#pragma once

#include <optional>
#include <vector>

#include <QDateTime>
#include <QString>

class QJsonObject;

namespace workbench {

class PlatformClient;

/// A message of the service to the current user about a task.
struct Message {
    enum class Kind { BeforePlanned = 1, Overdue = 2 };

    QString id;
    QString deptId;
    int kind = 0;  // a `Kind`, or one that the service has and this program does not know
    QString text;
    QString taskId;  // empty when the task is gone
    QDateTime created;
    bool isRead = false;
};

struct MessagePage {
    std::vector<Message> messages;
    int totalCount = 0;
    int unreadCount = 0;
};

/// The current user's messages at the service.
class Inbox {
public:
    static constexpr int kPageSize = 20;

    explicit Inbox(PlatformClient& client) : m_client(client) {}

    /// Page `number`, from 1, the newest message first; nothing on failure, and `why` tells the user.
    std::optional<MessagePage> page(int number, QString& why);
    bool markRead(const QString& id, QString& why);
    bool markAllRead(QString& why);

private:
    bool mark(const QJsonObject& which, QString& why);

    PlatformClient& m_client;
};

}  // namespace workbench
