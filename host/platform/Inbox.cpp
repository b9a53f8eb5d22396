#include "host/platform/Inbox.h"

#include <QJsonArray>

#include "host/platform/PlatformClient.h"
#include "host/platform/Reader.h"

namespace workbench {
namespace {

std::optional<Message> readMessage(const QJsonValue& value) {
    Reader reader(value);
    Message message;
    message.id = QString::fromStdWString(reader.text("id"));
    message.deptId = QString::fromStdWString(reader.text("deptId"));
    message.kind = reader.number("kind");
    message.text = QString::fromStdWString(reader.text("text"));
    message.taskId = QString::fromStdWString(reader.optionalText("taskId"));
    message.created = QDateTime::fromMSecsSinceEpoch(reader.mills("createdDateMills"));
    message.isRead = reader.flag("isRead");
    return reader.result(std::move(message));
}

std::optional<MessagePage> readPage(const QJsonValue& value) {
    Reader reader(value);
    MessagePage page;
    page.totalCount = reader.number("totalCount");
    page.unreadCount = reader.number("unreadCount");
    auto messages = readList(value.toObject()["result"], readMessage);
    if (!messages)
        return std::nullopt;
    page.messages = std::move(*messages);
    return reader.result(std::move(page));
}

}  // namespace

std::optional<MessagePage> Inbox::page(int number, QString& why) {
    QUrlQuery query;
    query.addQueryItem("currentPage", QString::number(number));
    query.addQueryItem("pageSize", QString::number(kPageSize));
    Answer answer = m_client.get("/rs/platform/messages", query);
    std::optional<MessagePage> page;
    if (answer.ok() && !(page = readPage(answer.result)))
        answer = m_client.failure(Outcome::Malformed, answer.status);
    why = answer.text;
    return page;
}

bool Inbox::markRead(const QString& id, QString& why) {
    return mark({{"ids", QJsonArray{id}}}, why);
}

bool Inbox::markAllRead(QString& why) {
    return mark({{"all", true}}, why);
}

bool Inbox::mark(const QJsonObject& which, QString& why) {
    const Answer answer = m_client.post("/rs/platform/messages/read", which);
    why = answer.text;
    return answer.ok();
}

}  // namespace workbench
