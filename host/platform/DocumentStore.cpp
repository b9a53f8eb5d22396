#include "host/platform/DocumentStore.h"

#include <QFileInfo>

#include "host/platform/Reader.h"
#include "host/platform/SendFile.h"
#include "sdk/packages/IKpxCurProjectMgr.h"

namespace workbench {
namespace {

constexpr char kRoot[] = "/rs/platform/documents";

QString text(Reader& reader, const char* key) {
    return QString::fromStdWString(reader.text(key));
}

std::optional<QString> readName(const QJsonValue& value) {
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

/// The texts of the member `key`; `good` becomes false when there are none such.
QStringList readNames(const QJsonValue& value, const char* key, bool& good) {
    const auto names = readList(value.toObject()[QLatin1String(key)], readName);
    good = good && names;
    return names ? QStringList(names->begin(), names->end()) : QStringList();
}

std::optional<DocumentFolder> readFolder(const QJsonValue& value) {
    Reader reader(value);
    DocumentFolder folder;
    folder.id = text(reader, "id");
    folder.parentId = text(reader, "parentId");
    folder.name = text(reader, "name");
    return reader.result(std::move(folder));
}

std::optional<DocumentType> readType(const QJsonValue& value) {
    Reader reader(value);
    bool good = true;
    DocumentType type;
    type.name = text(reader, "name");
    type.extensions = readNames(value, "extensions", good);
    return good ? reader.result(std::move(type)) : std::nullopt;
}

std::optional<DocumentLabel> readTag(const QJsonValue& value) {
    Reader reader(value);
    DocumentLabel tag{text(reader, "id"), text(reader, "name")};
    return reader.result(std::move(tag));
}

std::optional<DocumentLabel> readUpdater(const QJsonValue& value) {
    Reader reader(value);
    DocumentLabel person{text(reader, "userName"), text(reader, "realname")};
    return reader.result(std::move(person));
}

void fill(DocumentContent& content, Reader& reader) {
    content.uuid = text(reader, "uuid");
    content.md5 = text(reader, "md5");
    content.name = text(reader, "name");
    content.extension = text(reader, "extension");
    content.size = reader.number("size");
    content.updateBy = text(reader, "updateBy");
    content.updateRealname = text(reader, "updateRealname");
    content.updateMills = reader.mills("updateDateMills");
}

std::optional<DocumentContent> readContent(const QJsonValue& value) {
    Reader reader(value);
    DocumentContent content;
    fill(content, reader);
    return reader.result(std::move(content));
}

std::optional<Document> readDocument(const QJsonValue& value) {
    Reader reader(value);
    Document document;
    fill(document, reader);
    bool good = true;
    document.id = text(reader, "id");
    document.folderId = text(reader, "folderId");
    document.weaveMills = reader.mills("weaveDateMills");
    document.tags = readNames(value, "tags", good);
    document.contentNumber = reader.number("contentNumber");
    document.isDeleted = reader.flag("isDeleted");
    return good ? reader.result(std::move(document)) : std::nullopt;
}

std::optional<DocumentPage> readPage(const QJsonValue& value) {
    Reader reader(value);
    DocumentPage page;
    page.total = reader.number("total");
    auto documents = readList(value.toObject()["list"], readDocument);
    if (!documents)
        return std::nullopt;
    page.documents = std::move(*documents);
    return reader.result(std::move(page));
}

void addTo(QUrlQuery& query, const QString& key, const QString& value) {
    if (!value.isEmpty())
        query.addQueryItem(key, QUrl::toPercentEncoding(value));
}

}  // namespace

DocumentStore::DocumentStore(PlatformClient& client, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject)
    : m_client(client), m_currentProject(currentProject) {}

std::wstring DocumentStore::orCurrent(const std::wstring& deptId) const {
    return deptId.empty() ? m_currentProject.GetCurDeptId() : deptId;
}

template <class Record>
std::optional<std::vector<Record>> DocumentStore::list(const QString& path, const QUrlQuery& query,
                                                       std::optional<Record> (*read)(const QJsonValue& value),
                                                       QString& why) {
    Answer answer = m_client.get(kRoot + path, query);
    auto records = answer.ok() ? readList(answer.result, read) : std::nullopt;
    if (answer.ok() && !records)
        answer = m_client.failure(Outcome::Malformed, answer.status);
    why = answer.text;
    return records;
}

std::optional<std::vector<DocumentFolder>> DocumentStore::folders(QString& why, const std::wstring& deptId) {
    return list("/folders", queryOf({{"deptId", orCurrent(deptId)}}), readFolder, why);
}

std::optional<std::vector<DocumentType>> DocumentStore::types(QString& why) {
    return list("/types", {}, readType, why);
}

std::optional<std::vector<DocumentLabel>> DocumentStore::tags(QString& why) {
    return list("/tags", queryOf({{"deptId", orCurrent({})}}), readTag, why);
}

std::optional<std::vector<DocumentLabel>> DocumentStore::updaters(const QString& folderId, QString& why) {
    return list("/updaters", queryOf({{"deptId", orCurrent({})}, {"folderId", folderId.toStdWString()}}), readUpdater,
                why);
}

std::optional<DocumentPage> DocumentStore::page(const DocumentQuery& query, QString& why) {
    QUrlQuery keys = queryOf({{"deptId", orCurrent({})}});
    addTo(keys, "folderId", query.folderId);
    addTo(keys, "type", query.type);
    addTo(keys, "updateBy", query.updateBy);
    addTo(keys, "tag", query.tagId);
    addTo(keys, "keyword", query.keyword);
    if (query.seconds) {
        addTo(keys, "startSeconds", QString::number(query.seconds->first));
        addTo(keys, "endSeconds", QString::number(query.seconds->second));
    }
    addTo(keys, "deleted", query.deletedOnes ? "1" : "0");
    addTo(keys, "currentPage", QString::number(query.page));
    addTo(keys, "pageSize", QString::number(query.pageSize));
    Answer answer = m_client.get(kRoot, keys);
    auto page = answer.ok() ? readPage(answer.result) : std::nullopt;
    if (answer.ok() && !page)
        answer = m_client.failure(Outcome::Malformed, answer.status);
    why = answer.text;
    return page;
}

std::optional<std::vector<Document>> DocumentStore::find(const QStringList& ids, QString& why,
                                                         const std::wstring& deptId) {
    return list("/find", queryOf({{"deptId", orCurrent(deptId)}, {"ids", ids.join(',').toStdWString()}}), readDocument,
                why);
}

std::optional<std::vector<DocumentContent>> DocumentStore::contents(const QString& documentId, QString& why) {
    return list("/contents", queryOf({{"deptId", orCurrent({})}, {"id", documentId.toStdWString()}}), readContent, why);
}

Answer DocumentStore::post(const QString& path, QJsonObject body) {
    body["deptId"] = QString::fromStdWString(orCurrent({}));
    return m_client.post(kRoot + path, body);
}

QString DocumentStore::saveFolder(const DocumentFolder& folder) {
    return post("/folders/save", {{"id", folder.id}, {"parentId", folder.parentId}, {"name", folder.name}}).text;
}

QString DocumentStore::renameFolder(const QString& id, const QString& name) {
    return post("/folders/update", {{"id", id}, {"name", name}}).text;
}

QString DocumentStore::moveFolder(const QString& id, const QString& parentId) {
    return post("/folders/update", {{"id", id}, {"parentId", parentId}}).text;
}

QString DocumentStore::deleteFolder(const QString& id) {
    return post("/folders/delete", {{"id", id}}).text;
}

Answer DocumentStore::upload(const QString& id, const QString& folderId, const QString& path,
                             std::chrono::milliseconds patience) {
    const QString name = QFileInfo(path).fileName();
    Answer answer = sendFile(m_client, orCurrent({}), name.toStdWString(), {path, patience});
    if (!answer.ok())
        return answer;
    const QJsonObject document{
        {"id", id}, {"folderId", folderId}, {"name", name}, {"uuid", answer.result.toObject()["uuid"]}};
    answer = post("/save", document);
    const bool isLost = answer.outcome == Outcome::Unreachable || answer.outcome == Outcome::TimedOut;
    return isLost ? post("/save", document) : answer;
}

QString DocumentStore::change(const QStringList& ids, const QJsonObject& changes) {
    QJsonObject body = changes;
    body["ids"] = QJsonArray::fromStringList(ids);
    return post("/update", body).text;
}

QString DocumentStore::remove(const QStringList& ids, bool forced, DocumentLinks& links) {
    const Answer answer = post("/delete", {{"ids", QJsonArray::fromStringList(ids)}, {"isForced", forced ? 1 : 0}});
    const QJsonObject counts = answer.result.toObject();
    links = {counts["documents"].toInt(), counts["tasks"].toInt()};
    return answer.text;
}

QString DocumentStore::restore(const QStringList& ids) {
    return post("/restore", {{"ids", QJsonArray::fromStringList(ids)}}).text;
}

}  // namespace workbench
