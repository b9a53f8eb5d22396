#include "service/http/TaskJson.h"

namespace disclosure {

namespace {

using rapidjson::Value;

std::int64_t timeOf(const Value& object, const char* key) {
    return maybeLong(object, key).value_or(0);
}

template <class Read>
auto listOf(const Value& object, const char* key, Read&& read) {
    std::vector<decltype(read(object))> list;
    const auto member = object.FindMember(key);
    if (member != object.MemberEnd()) {
        for (const auto& element : member->value.GetArray())
            list.push_back(read(element));
    }
    return list;
}

TaskReceiver receiverOf(const Value& v) {
    return {textOf(v, "id"), textOf(v, "userName"), 0, {}, {}};
}

TaskViewport viewportOf(const Value& v) {
    return {textOf(v, "id"), numberOf(v, "ppid", 0), textOf(v, "viewportId")};
}

TaskNode nodeOf(const Value& v) {
    return {textOf(v, "id"), numberOf(v, "ppid", 0), textOf(v, "nodeId")};
}

TaskDoc docOf(const Value& v) {
    return {textOf(v, "id"),      numberOf(v, "ppid", 0), textOf(v, "name"),      textOf(v, "uuid"),
            textOf(v, "md5"),     numberOf(v, "size", 0), textOf(v, "extension"), numberOf(v, "sourceType", 0),
            textOf(v, "refDocId")};
}

void writeTime(JsonWriter& writer, const char* key, std::int64_t value) {
    writer.Key(key);
    writer.Int64(value);
}

template <class List, class Write>
void writeList(JsonWriter& writer, const char* key, const List& list, Write&& writeElement) {
    writer.Key(key);
    writer.StartArray();
    for (const auto& element : list) {
        writer.StartObject();
        writeElement(element);
        writer.EndObject();
    }
    writer.EndArray();
}

void writeLists(JsonWriter& writer, const Task& task) {
    writeList(writer, "disclosureTaskReceiveUserList", task.receivers, [&](const TaskReceiver& receiver) {
        write(writer, "id", receiver.id);
        write(writer, "disclosureTaskId", task.id);
        write(writer, "userName", receiver.username);
        write(writer, "userRealname", receiver.realname);
        write(writer, "userHeadUuid", receiver.headUuid);
        write(writer, "isConfirm", receiver.confirmedAt != 0 ? 1 : 0);
        writeTime(writer, "confirmDateMills", receiver.confirmedAt);
    });
    writeList(writer, "disclosureTaskViewportList", task.viewports, [&](const TaskViewport& viewport) {
        write(writer, "id", viewport.id);
        write(writer, "disclosureTaskId", task.id);
        write(writer, "ppid", viewport.ppid);
        write(writer, "viewportId", viewport.viewportId);
    });
    writeList(writer, "disclosureTaskNodeList", task.nodes, [&](const TaskNode& node) {
        write(writer, "id", node.id);
        write(writer, "disclosureTaskId", task.id);
        write(writer, "ppid", node.ppid);
        write(writer, "nodeId", node.nodeId);
    });
    writeList(writer, "disclosureTaskDocList", task.docs, [&](const TaskDoc& doc) {
        write(writer, "id", doc.id);
        write(writer, "disclosureTaskId", task.id);
        write(writer, "ppid", doc.ppid);
        write(writer, "name", doc.name);
        write(writer, "uuid", doc.uuid);
        write(writer, "md5", doc.md5);
        write(writer, "size", doc.size);
        write(writer, "extension", doc.extension);
        write(writer, "sourceType", doc.sourceType);
        write(writer, "refDocId", doc.refDocId);
    });
}

}  // namespace

TaskContent taskContentOf(const Value& body) {
    TaskContent content;
    content.catalogId = textOf(body, "disclosureCatalogId");
    content.name = textOf(body, "name");
    content.discloser = textOf(body, "disclosureUserName");
    content.constructionStart = timeOf(body, "constructionStartDateMills");
    content.constructionEnd = timeOf(body, "constructionEndDateMills");
    content.planDisclosure = timeOf(body, "planDisclosureDateMills");
    content.actualDisclosure = timeOf(body, "actualDisclosureDateMills");
    content.expiry = timeOf(body, "expiryDateMills");
    content.published = numberOf(body, "isPublish", 0) != 0;
    content.remark = textOf(body, "remark");
    content.receivers = listOf(body, "disclosureTaskReceiveUserList", receiverOf);
    content.viewports = listOf(body, "disclosureTaskViewportList", viewportOf);
    content.nodes = listOf(body, "disclosureTaskNodeList", nodeOf);
    content.docs = listOf(body, "disclosureTaskDocList", docOf);
    return content;
}

TaskChange taskChangeOf(const Value& body) {
    TaskChange change;
    change.catalogId = maybeText(body, "disclosureCatalogId");
    change.name = maybeText(body, "name");
    change.discloser = maybeText(body, "disclosureUserName");
    change.constructionStart = maybeLong(body, "constructionStartDateMills");
    change.constructionEnd = maybeLong(body, "constructionEndDateMills");
    change.planDisclosure = maybeLong(body, "planDisclosureDateMills");
    change.actualDisclosure = maybeLong(body, "actualDisclosureDateMills");
    change.expiry = maybeLong(body, "expiryDateMills");
    if (body.HasMember("isPublish"))
        change.published = numberOf(body, "isPublish", 0) != 0;
    change.remark = maybeText(body, "remark");
    change.receivers = {listOf(body, "saveDisclosureTaskReceiveUserList", receiverOf),
                        textsOf(body, "delDisclosureTaskReceiveUserIds")};
    change.viewports = {listOf(body, "saveDisclosureTaskViewportList", viewportOf),
                        textsOf(body, "delDisclosureTaskViewportIds")};
    change.nodes = {listOf(body, "saveDisclosureTaskNodeList", nodeOf), textsOf(body, "delDisclosureTaskNodeIds")};
    change.docs = {listOf(body, "saveDisclosureTaskDocList", docOf), textsOf(body, "delDisclosureTaskDocIds")};
    return change;
}

std::vector<TaskAttachment> attachmentsOf(const Value& body) {
    return listOf(body, "attachementList", [](const Value& v) {
        return TaskAttachment{textOf(v, "id"),
                              textOf(v, "name"),
                              textOf(v, "uuid"),
                              textOf(v, "md5"),
                              numberOf(v, "size", 0),
                              textOf(v, "extension"),
                              textOf(v, "thumbnailUuid"),
                              textOf(v, "thumbnailMd5"),
                              numberOf(v, "thumbnailSize", 0)};
    });
}

LogEntry logEntryOf(const Value& body) {
    LogEntry entry;
    entry.id = textOf(body, "id");
    entry.kind = numberOf(body, "opType", 0);
    entry.sourceId = textOf(body, "refSourceId");
    entry.sourceName = textOf(body, "sourceName");
    entry.sourceUuid = textOf(body, "sourceUuid");
    entry.sourceMd5 = textOf(body, "sourceMd5");
    entry.sourceSize = numberOf(body, "sourceSize", 0);
    entry.sourceExtension = textOf(body, "sourceExtension");
    return entry;
}

PushConfig pushConfigOf(const Value& body) {
    return {textOf(body, "id"),
            textOf(body, "deptId"),
            numberOf(body, "isNotifyAdvance", 0) != 0,
            numberOf(body, "daysNotifyAdvance", 0),
            numberOf(body, "advanceNotifyFrequency", 1),
            numberOf(body, "isNotifyOverdue", 0) != 0,
            numberOf(body, "overdueNotifyFrequency", 1)};
}

void writeTask(JsonWriter& writer, const Task& task, std::int64_t now) {
    writer.StartObject();
    write(writer, "id", task.id);
    write(writer, "deptId", task.deptId);
    write(writer, "disclosureCatalogId", task.catalogId);
    write(writer, "name", task.name);
    write(writer, "disclosureUserName", task.discloser);
    writeTime(writer, "constructionStartDateMills", task.constructionStart);
    writeTime(writer, "constructionEndDateMills", task.constructionEnd);
    writeTime(writer, "planDisclosureDateMills", task.planDisclosure);
    writeTime(writer, "actualDisclosureDateMills", task.actualDisclosure);
    writeTime(writer, "expiryDateMills", task.expiry);
    write(writer, "isPublish", task.published ? 1 : 0);
    write(writer, "remark", task.remark);
    write(writer, "status", static_cast<std::int32_t>(task.statusAt(now)));
    write(writer, "updateBy", task.updatedByName);
    writeTime(writer, "updateDateMills", task.updatedAt);
    writeLists(writer, task);
    write(writer, "deptName", task.deptName);
    write(writer, "disclosureUserRealname", task.discloserRealname);
    write(writer, "disclosureUserHeadUuid", task.discloserHeadUuid);
    write(writer, "isConfirm", task.confirmedAt != 0 ? 1 : 0);
    write(writer, "confirmRemark", task.confirmRemark);
    writeTime(writer, "confirmDateMills", task.confirmedAt);
    writeList(writer, "attachementList", task.attachments, [&](const TaskAttachment& file) {
        write(writer, "id", file.id);
        write(writer, "name", file.name);
        write(writer, "uuid", file.uuid);
        write(writer, "md5", file.md5);
        write(writer, "size", file.size);
        write(writer, "extension", file.extension);
        write(writer, "thumbnailUuid", file.thumbnailUuid);
        write(writer, "thumbnailMd5", file.thumbnailMd5);
        write(writer, "thumbnailSize", file.thumbnailSize);
    });
    writer.EndObject();
}

void writeOwnTask(JsonWriter& writer, const OwnTask& task) {
    writer.StartObject();
    write(writer, "id", task.id);
    write(writer, "name", task.name);
    writeTime(writer, "planDisclosureDateMills", task.planDisclosure);
    writeTime(writer, "expiryDateMills", task.expiry);
    writeTime(writer, "actualDisclosureDateMills", task.actualDisclosure);
    write(writer, "status", task.status);
    writer.EndObject();
}

void writeLogEntry(JsonWriter& writer, const LogEntry& entry) {
    writer.StartObject();
    write(writer, "id", entry.id);
    write(writer, "deptId", entry.deptId);
    write(writer, "disclosureTaskId", entry.taskId);
    write(writer, "userName", entry.username);
    writeTime(writer, "opDateMills", entry.time);
    write(writer, "opType", entry.kind);
    write(writer, "refSourceId", entry.sourceId);
    write(writer, "sourceName", entry.sourceName);
    write(writer, "sourceUuid", entry.sourceUuid);
    write(writer, "sourceMd5", entry.sourceMd5);
    write(writer, "sourceSize", entry.sourceSize);
    write(writer, "sourceExtension", entry.sourceExtension);
    write(writer, "userRealname", entry.realname);
    write(writer, "userHeadUuid", entry.headUuid);
    writer.EndObject();
}

void writePushConfig(JsonWriter& writer, const PushConfig& config) {
    writer.StartObject();
    write(writer, "id", config.id);
    write(writer, "deptId", config.deptId);
    write(writer, "isNotifyAdvance", config.notifyAdvance ? 1 : 0);
    write(writer, "daysNotifyAdvance", config.daysAdvance);
    write(writer, "advanceNotifyFrequency", config.advanceFrequency);
    write(writer, "isNotifyOverdue", config.notifyOverdue ? 1 : 0);
    write(writer, "overdueNotifyFrequency", config.overdueFrequency);
    writer.EndObject();
}

}  // namespace disclosure
