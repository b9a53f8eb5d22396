#include "service/http/DocumentJson.h"

namespace disclosure {

namespace {

/// What a document and one of its contents have alike.
void writeMembers(JsonWriter& writer, const DocumentContent& content) {
    write(writer, "name", content.name);
    write(writer, "uuid", content.uuid);
    write(writer, "md5", content.md5);
    write(writer, "extension", content.extension);
    write(writer, "size", content.size);
    write(writer, "updateBy", content.updatedBy);
    write(writer, "updateRealname", content.updatedByName);
    write(writer, "updateDateMills", content.updatedAt);
}

}  // namespace

DocumentChange documentChangeOf(const rapidjson::Value& body) {
    DocumentChange change{maybeText(body, "name"), maybeText(body, "folderId"), maybeLong(body, "weaveDateMills"), {}};
    if (body.HasMember("tags"))
        change.tags = textsOf(body, "tags");
    return change;
}

void writeFolder(JsonWriter& writer, const DocumentFolder& folder) {
    writer.StartObject();
    write(writer, "id", folder.id);
    write(writer, "parentId", folder.parentId);
    write(writer, "name", folder.name);
    write(writer, "documentNumber", folder.documentNumber);
    writer.EndObject();
}

void writeDocument(JsonWriter& writer, const Document& document) {
    writer.StartObject();
    write(writer, "id", document.id);
    write(writer, "folderId", document.folderId);
    writeMembers(writer, document);
    write(writer, "weaveDateMills", document.wovenAt);
    writer.Key("tags");
    writer.StartArray();
    for (const DocumentTag& tag : document.tags)
        writer.String(tag.name.data(), static_cast<rapidjson::SizeType>(tag.name.size()));
    writer.EndArray();
    write(writer, "contentNumber", document.contentNumber);
    write(writer, "isDeleted", document.isDeleted ? 1 : 0);
    writer.EndObject();
}

void writeContent(JsonWriter& writer, const DocumentContent& content) {
    writer.StartObject();
    writeMembers(writer, content);
    writer.EndObject();
}

}  // namespace disclosure
