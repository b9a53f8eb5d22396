#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

template <class... Used>
std::optional<StoredFile> SqlStore::readFile(const char* query, const FileKey& key, Used&&... used) {
    StoredFile f;
    f.key = key;
    if (!m_statements.one(query, into(f.name), into(f.extension), into(f.md5), into(f.size), into(f.username),
                          into(f.storedAt), use(key.deptId, "dept"), use(key.uuid, "uuid"),
                          std::forward<Used>(used)...))
        return std::nullopt;
    return f;
}

std::optional<StoredFile> SqlStore::file(const FileKey& key) {
    return readFile(queries::FileByUuid, key);
}

std::optional<StoredFile> SqlStore::fileOfPerson(const std::string& username, const FileKey& key) {
    return readFile(queries::FileOfPerson, key, use(username, "username"));
}

bool SqlStore::knowsFile(const std::string& uuid) {
    return readNumber(queries::KnownFile, use(uuid, "uuid")) > 0;
}

std::vector<std::string> SqlStore::knownFiles(const std::string& first, const std::string& last) {
    std::string uuid;
    return m_statements.list(queries::KnownFiles, uuid, into(uuid), use(first, "first"), use(last, "last"));
}

bool SqlStore::holdsFiles() {
    return readNumber("SELECT COUNT(*) FROM (SELECT 1 FROM stored_file LIMIT 1) found") > 0;
}

std::string SqlStore::folderId() {
    std::string id;
    m_statements.one("SELECT id FROM file_folder", into(id));
    return id;
}

std::int64_t SqlStore::bytesOf(const std::string& deptId) {
    return readNumber(queries::BytesUsed, use(deptId, "dept"));
}

void SqlStore::addFile(const StoredFile& f) {
    m_statements.run(
        "INSERT INTO stored_file (dept_id, uuid, name, extension, md5, size, uploaded_by, stored_at, loose_since) "
        "VALUES (:dept, :uuid, :name, :extension, :md5, :size, :username, :time, :time)",
        use(f.key.deptId, "dept"), use(f.key.uuid, "uuid"), use(f.name, "name"), use(f.extension, "extension"),
        use(f.md5, "md5"), use(f.size, "size"), use(f.username, "username"), use(f.storedAt, "time"));
}

void SqlStore::removeFile(const FileKey& key) {
    m_statements.run("DELETE FROM stored_file WHERE dept_id = :dept AND uuid = :uuid", use(key.deptId, "dept"),
                     use(key.uuid, "uuid"));
}

void SqlStore::addUpload(const PendingFile& f) {
    m_statements.run("INSERT INTO file_upload (dept_id, uuid, size, begun_at) VALUES (:dept, :uuid, :size, :begun)",
                     use(f.key.deptId, "dept"), use(f.key.uuid, "uuid"), use(f.size, "size"), use(f.begunAt, "begun"));
}

void SqlStore::removeUpload(const FileKey& key) {
    m_statements.run("DELETE FROM file_upload WHERE dept_id = :dept AND uuid = :uuid", use(key.deptId, "dept"),
                     use(key.uuid, "uuid"));
}

std::vector<FileKey> SqlStore::uploadsBegunBefore(std::int64_t time) {
    FileKey key;
    return m_statements.list(queries::UploadsBefore, key, into(key.deptId), into(key.uuid), use(time, "before"));
}

bool SqlStore::isReferredTo(const FileKey& key) {
    return readNumber(queries::References, use(key.deptId, "dept"), use(key.uuid, "uuid")) > 0;
}

std::vector<LooseFile> SqlStore::looseFiles(std::int64_t time, std::size_t most) {
    LooseFile file;
    return m_statements.list(queries::LooseFiles, file, into(file.key.deptId), into(file.key.uuid), into(file.since),
                             use(time, "before"), use(static_cast<std::int64_t>(most), "most"));
}

void SqlStore::setLoose(const FileKey& key, std::int64_t since) {
    m_statements.run("UPDATE stored_file SET loose_since = :since WHERE dept_id = :dept AND uuid = :uuid",
                     use(since, "since"), use(key.deptId, "dept"), use(key.uuid, "uuid"));
}

}  // namespace disclosure
