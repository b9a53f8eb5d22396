#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

/// Asks the service directly, in a session of its own, what it has stored in the demo user's department.
class ServiceProbe {
public:
    explicit ServiceProbe(QString address) : m_address(std::move(address)) {}

    /// The id of the first catalog of that name; empty when there is none.
    QString catalogId(const QString& name);
    /// The names of the catalogs directly below, in the service's order.
    QStringList children(const QString& parentId);
    /// A page of the tasks in and below a catalog: "result" and "totalCount". `changed` replaces values of the query of
    /// a list that is opened.
    QJsonObject tasks(const QString& catalog, const QList<QPair<QString, QString>>& changed = {});
    int count(const QString& catalog) { return tasks(catalog).value("totalCount").toInt(); }
    /// Empty when there is no such task.
    QJsonObject task(const QString& id);
    void rename(const QString& taskId, const QString& name);
    /// The bytes of a stored file.
    QByteArray file(const QString& uuid);
    /// The reminder settings.
    QJsonObject pushConfig();
    /// The newest messages of the demo user: "result", "totalCount" and "unreadCount".
    QJsonObject messages();
    /// Ends somebody else's session.
    void endSession(const QByteArray& sessionId);

    static QJsonObject firstOf(const QJsonObject& page) { return page.value("result").toArray().first().toObject(); }

private:
    QJsonValue get(const QString& path);
    QByteArray request(const QByteArray& method, const QString& path, const QByteArray& body);
    QJsonArray catalogs();

    QString m_address;
    QByteArray m_cookie;
    QString m_deptId;
};
