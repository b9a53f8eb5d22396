#include "service/http/MessageHandlers.h"

#include "service/http/QueryValues.h"

namespace disclosure {

namespace {

constexpr std::int32_t UsualPage = 20;
constexpr std::int32_t LargestPage = 100;

void writeNumber(JsonWriter& writer, const char* key, std::int64_t number) {
    writer.Key(key);
    writer.Int64(number);
}

void writeMessage(JsonWriter& writer, const Message& message) {
    writer.StartObject();
    write(writer, "id", std::to_string(message.rid));
    write(writer, "deptId", message.deptId);
    write(writer, "kind", static_cast<std::int32_t>(message.kind));
    write(writer, "text", message.text);
    write(writer, "taskId", message.taskId);
    write(writer, "taskName", message.taskName);
    write(writer, "catalogId", message.catalogId);
    writeNumber(writer, "createdDateMills", message.createdAt);
    write(writer, "isRead", message.isRead);
    writer.EndObject();
}

}  // namespace

Response pageMessages(Call& call) {
    const Paging paging = pagingOf(call, UsualPage, LargestPage);
    const MessagePage page = call.store->pageMessages(call.username, paging.offset, paging.limit);
    return success([&](JsonWriter& writer) {
        writer.StartObject();
        writeNumber(writer, "totalCount", page.total);
        writeNumber(writer, "unreadCount", page.unread);
        writer.Key("result");
        writer.StartArray();
        for (const Message& message : page.messages)
            writeMessage(writer, message);
        writer.EndArray();
        writer.EndObject();
    });
}

Response unreadMessages(Call& call) {
    const std::int64_t unread = call.store->unreadMessages(call.username);
    return success([&](JsonWriter& writer) {
        writer.StartObject();
        writeNumber(writer, "unreadCount", unread);
        writer.EndObject();
    });
}

Response markMessagesRead(Call& call) {
    if (call.body.HasMember("all")) {
        call.store->markMessagesRead(call.username);
        return done();
    }
    for (const auto& id : call.body["ids"].GetArray()) {
        const std::string text(id.GetString(), id.GetStringLength());
        std::int64_t rid = 0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), rid);
        // What is nobody's id is no message of this person either.
        if (read.ec == std::errc() && std::to_string(rid) == text)
            call.store->markMessageRead(call.username, rid);
    }
    return done();
}

}  // namespace disclosure
