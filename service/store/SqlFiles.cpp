#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

template <class... Used>
std::optional<StoredFile> SqlStore::readFile(const char* query, const FileKey& key, Used&&... used) {
    StoredFile f;
    f.key = key;
    long long size = 0;
    long long storedAt = 0;
    soci::statement row = ((m_sql->prepare << query, into(f.name), into(f.extension), into(f.md5), into(size),
                            into(f.username), into(storedAt), use(key.deptId, "dept"), use(key.uuid, "uuid")),
                           ..., used);
    if (!row.execute(true))
        return std::nullopt;
    f.size = size;
    f.storedAt = storedAt;
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

std::int64_t SqlStore::bytesOf(const std::string& deptId) {
    return readNumber(queries::BytesStored, use(deptId, "dept")) +
           readNumber(queries::BytesComing, use(deptId, "dept"));
}

void SqlStore::addFile(const StoredFile& f) {
    const long long size = f.size;
    const long long time = f.storedAt;
    run("INSERT INTO stored_file (dept_id, uuid, name, extension, md5, size, uploaded_by, stored_at, loose_since) "
        "VALUES (:dept, :uuid, :name, :extension, :md5, :size, :username, :time, :time)",
        use(f.key.deptId, "dept"), use(f.key.uuid, "uuid"), use(f.name, "name"), use(f.extension, "extension"),
        use(f.md5, "md5"), use(size, "size"), use(f.username, "username"), use(time, "time"));
}

void SqlStore::removeFile(const FileKey& key) {
    run("DELETE FROM stored_file WHERE dept_id = :dept AND uuid = :uuid", use(key.deptId, "dept"),
        use(key.uuid, "uuid"));
}

void SqlStore::addUpload(const PendingFile& f) {
    const long long size = f.size;
    const long long begun = f.begunAt;
    run("INSERT INTO file_upload (dept_id, uuid, size, begun_at) VALUES (:dept, :uuid, :size, :begun)",
        use(f.key.deptId, "dept"), use(f.key.uuid, "uuid"), use(size, "size"), use(begun, "begun"));
}

void SqlStore::removeUpload(const FileKey& key) {
    run("DELETE FROM file_upload WHERE dept_id = :dept AND uuid = :uuid", use(key.deptId, "dept"),
        use(key.uuid, "uuid"));
}

std::vector<FileKey> SqlStore::uploadsBegunBefore(std::int64_t time) {
    std::vector<FileKey> found;
    FileKey key;
    const long long before = time;
    soci::statement rows =
        (m_sql->prepare << queries::UploadsBefore, into(key.deptId), into(key.uuid), use(before, "before"));
    rows.execute();
    while (rows.fetch())
        found.push_back(key);
    return found;
}

bool SqlStore::isReferredTo(const FileKey& key) {
    return readNumber(queries::References, use(key.deptId, "dept"), use(key.uuid, "uuid")) > 0;
}

std::vector<LooseFile> SqlStore::looseFiles(std::int64_t time, std::size_t most) {
    std::vector<LooseFile> found;
    LooseFile file;
    long long since = 0;
    const long long before = time;
    const auto limit = static_cast<long long>(most);
    soci::statement rows = (m_sql->prepare << queries::LooseFiles, into(file.key.deptId), into(file.key.uuid),
                            into(since), use(before, "before"), use(limit, "most"));
    rows.execute();
    while (rows.fetch()) {
        file.since = since;
        found.push_back(file);
    }
    return found;
}

void SqlStore::setLoose(const FileKey& key, std::int64_t since) {
    const long long time = since;
    run("UPDATE stored_file SET loose_since = :since WHERE dept_id = :dept AND uuid = :uuid", use(time, "since"),
        use(key.deptId, "dept"), use(key.uuid, "uuid"));
}

}  // namespace disclosure
