#include "service/store/DocumentPlan.h"

#include <algorithm>

#include "service/store/NameIndex.h"
#include "service/store/Queries.h"

namespace disclosure {

DocumentPlan::DocumentPlan(const DocumentFilter& filter) : m_filter(filter) {
    if (!filter.keyword.empty()) {
        m_keyword = searchForm(filter.keyword);
        m_grams = gramQuery(filter.deptId + (filter.deleted ? "." : ""), m_keyword);
        m_others.push_back(Path::Names);
    }
    if (isTagged())
        m_others.push_back(Path::Tag);
    if (isWoven())
        m_others.push_back(Path::Woven);
    if (!filter.extensions.empty())
        m_others.push_back(Path::Extension);
    if (!filter.updatedBy.empty())
        m_others.push_back(Path::Updater);
}

DocumentPlan::Path DocumentPlan::ordered() const {
    if (m_filter.folderId != TopFolder)
        return Path::Folder;
    return m_filter.tagId == DocumentFilter::Untagged ? Path::Untagged : Path::All;
}

DocumentFilter DocumentPlan::alone(Path path) const {
    DocumentFilter filter;
    filter.deptId = m_filter.deptId;
    filter.deleted = m_filter.deleted;
    if (path == Path::Folder)
        filter.folderId = m_filter.folderId;
    if (path == Path::Untagged)
        filter.tagId = m_filter.tagId;
    if (path == Path::Extension)
        filter.extensions = m_filter.extensions;
    if (path == Path::Updater)
        filter.updatedBy = m_filter.updatedBy;
    return filter;
}

std::string DocumentPlan::from(Path path) {
    const auto indexed = [](const char* index) {
        return std::string("FROM document d INDEXED BY ") + index + " WHERE ";
    };
    switch (path) {
        case Path::Names:
            return "FROM doc_gram g CROSS JOIN document d WHERE g.doc_gram MATCH :grams AND d.rid = g.rowid AND ";
        case Path::Tag:
            return "FROM doc_tagged l CROSS JOIN document d WHERE l.dept_id = :dept AND l.tag_id = :tag AND d.rid = "
                   "l.doc_rid AND +";
        case Path::Woven:
            return indexed("document_woven");
        case Path::Extension:
            return indexed("document_extension");
        case Path::Updater:
            return indexed("document_updater");
        case Path::Folder:
            return indexed("document_folder");
        case Path::Untagged:
            return indexed("document_untagged");
        case Path::All:
            break;
    }
    return indexed("document_updated");
}

std::string DocumentPlan::conditions(Path path) const {
    std::string text = "d.dept_id = :dept AND d.deleted = :deleted";
    if (m_filter.folderId != TopFolder)
        text += " AND d.folder_id = :folder";
    if (!m_filter.extensions.empty())
        text += " AND d.extension IN (SELECT value FROM json_each(:extensions))";
    if (!m_filter.updatedBy.empty())
        text += " AND d.updated_by = :person";
    if (isWoven())
        text += " AND d.woven_at BETWEEN :from AND :to";
    if (m_filter.tagId == DocumentFilter::Untagged)
        text += " AND d.tag_number = 0";
    else if (isTagged() && path != Path::Tag)
        text +=
            " AND EXISTS (SELECT 1 FROM doc_tagged l WHERE l.dept_id = d.dept_id AND l.tag_id = :tag AND l.doc_rid "
            "= d.rid)";
    if (!m_keyword.empty() && !(path == Path::Names && gramQueryIsExact(m_keyword)))
        text += " AND INSTR(d.search_name, :keyword) > 0";
    return text;
}

BoundSql DocumentPlan::statement(std::string text) const {
    BoundSql sql{std::move(text)};
    sql.give("dept", m_filter.deptId);
    sql.give("folder", m_filter.folderId);
    sql.give("extensions", jsonOf(m_filter.extensions));
    sql.give("person", m_filter.updatedBy);
    sql.give("tag", m_filter.tagId);
    sql.give("keyword", m_keyword);
    sql.give("grams", m_grams);
    sql.give("deleted", m_filter.deleted ? 1 : 0);
    sql.give("from", std::max<std::int64_t>(1, m_filter.from));
    sql.give("to", m_filter.to);
    return sql;
}

BoundSql DocumentPlan::probe(Path path, std::int64_t most) const {
    if (path == Path::Tag)
        return statement(queries::DocTagUses);
    BoundSql sql = statement(
        std::string("SELECT COUNT(*) FROM (SELECT 1 ") +
        (path == Path::Names ? "FROM doc_gram g WHERE g.doc_gram MATCH :grams"
                             : from(path) + "d.dept_id = :dept AND d.deleted = :deleted AND d.woven_at BETWEEN :from "
                                            "AND :to") +
        " LIMIT :most) AS lying");
    sql.give("most", most);
    return sql;
}

BoundSql DocumentPlan::count(Path path) const {
    const bool namesAlone = path == Path::Names && m_others.size() == 1 && m_filter.folderId == TopFolder &&
                            m_filter.tagId.empty() && gramQueryIsExact(m_keyword);
    if (namesAlone)
        return statement("SELECT COUNT(*) FROM doc_gram g WHERE g.doc_gram MATCH :grams");
    return statement("SELECT COUNT(*) " + from(path) + conditions(path));
}

BoundSql DocumentPlan::page(Path path, std::int64_t total) const {
    // The second half of the list is read from its end.
    const bool back = m_filter.offset > total / 2;
    const std::int64_t limit = std::min(m_filter.limit, total - m_filter.offset);
    const std::string direction = back ? " ASC" : " DESC";
    BoundSql sql = statement(queries::DocumentsOfPage + ("SELECT d.rid " + from(path)) + conditions(path) +
                             " ORDER BY d.updated_at" + direction + ", d.rid" + direction +
                             " LIMIT :limit OFFSET :offset" + queries::DocumentsOfPageEnd);
    sql.give("limit", limit);
    sql.give("offset", back ? total - m_filter.offset - limit : m_filter.offset);
    return sql;
}

}  // namespace disclosure
