#include <algorithm>

#include "service/store/NameIndex.h"
#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

template <class... Used>
std::vector<DocumentFolder> SqlStore::readFolders(const char* query, Used&&... used) {
    DocumentFolder f;
    return m_statements.list(query, f, into(f.deptId), into(f.id), into(f.parentId), into(f.name), into(f.depth),
                             into(f.documentNumber), std::forward<Used>(used)...);
}

std::vector<DocumentFolder> SqlStore::folders(const std::string& deptId) {
    return readFolders(queries::DocFolders, use(deptId, "dept"));
}

std::optional<DocumentFolder> SqlStore::folder(const std::string& deptId, const std::string& id) {
    auto found = readFolders(queries::DocFolderById, use(deptId, "dept"), use(id, "id"));
    if (found.empty())
        return std::nullopt;
    return std::move(found.front());
}

bool SqlStore::hasFolderNamed(const std::string& deptId, const std::string& parentId, const std::string& name) {
    return readNumber(queries::DocFolderNamed, use(deptId, "dept"), use(parentId, "parent"), use(name, "name")) > 0;
}

std::int64_t SqlStore::folderCount(const std::string& deptId) {
    return readNumber(queries::DocFolderCount, use(deptId, "dept"));
}

bool SqlStore::isFolderUsed(const std::string& deptId, const std::string& id) {
    return readNumber(queries::DocFolderUsed, use(deptId, "dept"), use(id, "id")) > 0;
}

bool SqlStore::isFolderWithin(const std::string& deptId, const std::string& id, const std::string& other) {
    return readNumber(queries::DocFolderWithin, use(deptId, "dept"), use(id, "id"), use(other, "other")) > 0;
}

std::int32_t SqlStore::levelsBelow(const std::string& deptId, const std::string& id) {
    return static_cast<std::int32_t>(readNumber(queries::LevelsOfDocFolder, use(deptId, "dept"), use(id, "id")));
}

void SqlStore::addFolder(const DocumentFolder& f) {
    m_statements.run(
        "INSERT INTO doc_folder (dept_id, folder_id, parent_id, name, depth) VALUES (:dept, :id, :parent, :name, "
        ":depth)",
        use(f.deptId, "dept"), use(f.id, "id"), use(f.parentId, "parent"), use(f.name, "name"), use(f.depth, "depth"));
}

void SqlStore::putFolder(const DocumentFolder& f) {
    const std::int64_t depth = folder(f.deptId, f.id)->depth;
    if (depth != f.depth)
        m_statements.run(queries::SinkDocFolders, use(f.deptId, "dept"), use(f.id, "id"), use(f.depth - depth, "by"));
    m_statements.run(
        "UPDATE doc_folder SET parent_id = :parent, name = :name WHERE dept_id = :dept AND folder_id = :id",
        use(f.parentId, "parent"), use(f.name, "name"), use(f.deptId, "dept"), use(f.id, "id"));
}

void SqlStore::removeFolder(const std::string& deptId, const std::string& id) {
    m_statements.run("DELETE FROM doc_folder WHERE dept_id = :dept AND folder_id = :id", use(deptId, "dept"),
                     use(id, "id"));
}

std::vector<DocumentContent> SqlStore::contentsOf(const Document& document) {
    DocumentContent c;
    return m_statements.list(queries::ContentsOfDocument, c, into(c.uuid), into(c.md5), into(c.name), into(c.extension),
                             into(c.size), into(c.updatedBy), into(c.updatedAt), into(c.updatedByName),
                             use(document.deptId, "dept"), use(document.rid, "rid"));
}

std::vector<DocumentTag> SqlStore::tags(const std::string& deptId) {
    DocumentTag tag;
    return m_statements.list(queries::DocTags, tag, into(tag.id), into(tag.name), use(deptId, "dept"));
}

std::optional<DocumentTag> SqlStore::tagNamed(const std::string& deptId, const std::string& name) {
    DocumentTag tag;
    if (!m_statements.one(queries::DocTagNamed, into(tag.id), into(tag.name), use(deptId, "dept"), use(name, "name")))
        return std::nullopt;
    return tag;
}

std::int64_t SqlStore::tagCount(const std::string& deptId) {
    return readNumber(queries::DocTagCount, use(deptId, "dept"));
}

void SqlStore::addTag(const std::string& deptId, const DocumentTag& tag) {
    m_statements.run("INSERT INTO doc_tag (dept_id, tag_id, name) VALUES (:dept, :id, :name)", use(deptId, "dept"),
                     use(tag.id, "id"), use(tag.name, "name"));
}

std::int64_t SqlStore::addDocument(const Document& document) {
    writeDocument(
        "INSERT INTO document (dept_id, doc_id, folder_id, name, search_name, extension, uuid, md5, size, woven_at, "
        "tag_number, content_number, updated_by, updated_at, deleted, loose_since) VALUES (:dept, :id, :folder, :name, "
        ":search, :extension, :uuid, :md5, :size, :woven, :tags, :contents, :by, :at, :deleted, :loose)",
        document);
    const std::int64_t rid = readNumber("SELECT last_insert_rowid()");
    addContent(document, rid);
    writeTags(document, rid, {});
    return rid;
}

void SqlStore::putDocument(const Document& document, const Document& before) {
    writeDocument(
        "UPDATE document SET folder_id = :folder, name = :name, search_name = :search, extension = :extension, uuid = "
        ":uuid, md5 = :md5, size = :size, woven_at = :woven, tag_number = :tags, content_number = :contents, "
        "updated_by = :by, updated_at = :at, deleted = :deleted, loose_since = :loose WHERE dept_id = :dept AND doc_id "
        "= :id",
        document);
    if (document.uuid != before.uuid)
        addContent(document, document.rid);
    writeTags(document, document.rid, before.tags);
}

void SqlStore::writeDocument(const char* statement, const Document& d) {
    m_statements.run(statement, use(d.deptId, "dept"), use(d.id, "id"), use(d.folderId, "folder"), use(d.name, "name"),
                     use(searchForm(d.name), "search"), use(d.extension, "extension"), use(d.uuid, "uuid"),
                     use(d.md5, "md5"), use(d.size, "size"), use(d.wovenAt, "woven"),
                     use(static_cast<int>(d.tags.size()), "tags"), use(d.contentNumber, "contents"),
                     use(d.updatedBy, "by"), use(d.updatedAt, "at"), use(d.isDeleted ? 1 : 0, "deleted"),
                     use(d.isDeleted ? d.updatedAt : std::int64_t{0}, "loose"));
}

void SqlStore::addContent(const Document& d, std::int64_t rid) {
    m_statements.run(
        "INSERT INTO doc_content (dept_id, doc_rid, number, uuid, md5, name, extension, size, updated_by, updated_at) "
        "VALUES (:dept, :rid, :number, :uuid, :md5, :name, :extension, :size, :by, :at)",
        use(d.deptId, "dept"), use(rid, "rid"), use(d.contentNumber, "number"), use(d.uuid, "uuid"), use(d.md5, "md5"),
        use(d.name, "name"), use(d.extension, "extension"), use(d.size, "size"), use(d.updatedBy, "by"),
        use(d.updatedAt, "at"));
}

/// A tag that no document has goes, so those that come are written first.
void SqlStore::writeTags(const Document& d, std::int64_t rid, const std::vector<DocumentTag>& before) {
    if (d.tags == before)
        return;
    int position = 0;
    for (const DocumentTag& tag : d.tags)
        m_statements.run(
            "INSERT INTO doc_tagged (dept_id, tag_id, doc_rid, position) VALUES (:dept, :tag, :rid, :position) ON "
            "CONFLICT (dept_id, tag_id, doc_rid) DO UPDATE SET position = excluded.position",
            use(d.deptId, "dept"), use(tag.id, "tag"), use(rid, "rid"), use(position++, "position"));
    for (const DocumentTag& tag : before)
        if (std::find(d.tags.begin(), d.tags.end(), tag) == d.tags.end())
            m_statements.run("DELETE FROM doc_tagged WHERE dept_id = :dept AND tag_id = :tag AND doc_rid = :rid",
                             use(d.deptId, "dept"), use(tag.id, "tag"), use(rid, "rid"));
}

DocumentLinks SqlStore::linksTo(const std::string& deptId, const std::vector<std::string>& ids) {
    DocumentLinks links;
    const std::string list = jsonOf(ids);
    m_statements.one(queries::LinksToDocuments, into(links.documents), into(links.tasks), use(list, "ids"),
                     use(deptId, "dept"));
    return links;
}

void SqlStore::holdDocument(const Document& document) {
    m_statements.run("UPDATE document SET loose_since = 0 WHERE dept_id = :dept AND doc_id = :id",
                     use(document.deptId, "dept"), use(document.id, "id"));
}

void SqlStore::removeDocument(const Document& document) {
    m_statements.run("DELETE FROM document WHERE dept_id = :dept AND doc_id = :id", use(document.deptId, "dept"),
                     use(document.id, "id"));
}

}  // namespace disclosure
