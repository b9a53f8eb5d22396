#include <algorithm>
#include <unordered_map>

#include "service/store/DocumentPlan.h"
#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

namespace {

/// So few are gone through at once, whatever is asked.
constexpr std::int64_t Few = 1000;

}  // namespace

std::int64_t SqlStore::documentsLike(const DocumentFilter& filter) {
    const std::string extensions = jsonOf(filter.extensions);
    return readNumber(queries::DocumentsLike, use(filter.deptId, "dept"), use(filter.folderId, "folder"),
                      use(filter.deleted ? 1 : 0, "deleted"), use(filter.updatedBy, "person"),
                      use(extensions, "extensions"), use(filter.tagId == DocumentFilter::Untagged ? 1 : 0, "untagged"));
}

DocumentPage SqlStore::pageDocuments(const DocumentFilter& filter) {
    using Path = DocumentPlan::Path;
    DocumentPage page;
    page.total = documentsLike(filter);
    if (page.total == 0)
        return page;
    const DocumentPlan plan(filter);
    const auto numberOf = [this](const BoundSql& sql) {
        std::int64_t number = 0;
        m_statements.eachOf(
            sql.text, [] {},
            [&](soci::statement& statement) {
                statement.exchange(into(number));
                sql.bind(statement);
            });
        return number;
    };
    const Path ordered = plan.ordered();
    const std::int64_t all = plan.others().empty() ? page.total : documentsLike(plan.alone(ordered));
    std::pair path{ordered, all};
    if (all > Few)
        path = shortest(plan.others(), ordered, all, [&](Path other, std::int64_t fewest) {
            if (other == Path::Extension || other == Path::Updater)
                return documentsLike(plan.alone(other));
            return numberOf(plan.probe(other, fewest));
        });
    if (plan.isSearched())
        page.total = numberOf(plan.count(path.first));
    if (filter.offset >= page.total)
        return page;
    // Where matches are many, so many are gone through in order until the page is full; else all on the way are sorted.
    const std::int64_t before = std::min(filter.offset, page.total - filter.offset);
    const bool walk = (before + filter.limit) * all / page.total <= path.second;
    const BoundSql sql = plan.page(walk ? ordered : path.first, page.total);
    page.documents = readDocuments(sql.text, [&](soci::statement& statement) { sql.bind(statement); });
    addTags(filter.deptId, page.documents);
    return page;
}

std::vector<Document> SqlStore::readDocuments(std::string_view text,
                                              const std::function<void(soci::statement&)>& bind) {
    std::vector<Document> found;
    Document d;
    int deleted = 0;
    m_statements.eachOf(
        text,
        [&] {
            d.isDeleted = deleted != 0;
            found.push_back(std::move(d));  // all of it is read anew for the next
        },
        [&](soci::statement& statement) {
            const auto read = [&](auto&... fields) { (statement.exchange(into(fields)), ...); };
            read(d.rid, d.deptId, d.id, d.folderId, d.name, d.extension, d.uuid, d.md5, d.size, d.wovenAt,
                 d.contentNumber, d.updatedBy, d.updatedAt, deleted, d.updatedByName);
            bind(statement);
        });
    return found;
}

void SqlStore::addTags(const std::string& deptId, std::vector<Document>& documents) {
    if (documents.empty())
        return;
    std::unordered_map<std::int64_t, Document*> byRid;
    std::vector<std::int64_t> rids;
    for (Document& document : documents) {
        byRid[document.rid] = &document;
        rids.push_back(document.rid);
    }
    const std::string list = "[" + listed(rids) + "]";
    std::int64_t rid = 0;
    DocumentTag tag;
    m_statements.each(
        queries::TagsOfDocuments, [&] { byRid.at(rid)->tags.push_back(tag); }, into(rid), into(tag.id), into(tag.name),
        use(list, "rids"), use(deptId, "dept"));
}

std::vector<Document> SqlStore::documents(const std::string& deptId, const std::vector<std::string>& ids) {
    const std::string list = jsonOf(ids);
    auto found = readDocuments(queries::DocumentsById, [&](soci::statement& statement) {
        statement.exchange(use(list, "ids"));
        statement.exchange(use(deptId, "dept"));
    });
    addTags(deptId, found);
    return found;
}

std::vector<Document> SqlStore::looseDocuments(std::int64_t time, std::size_t most) {
    const auto limit = static_cast<std::int64_t>(most);
    return readDocuments(queries::LooseDocuments, [&](soci::statement& statement) {
        statement.exchange(use(time, "before"));
        statement.exchange(use(limit, "most"));
    });
}

std::vector<Person> SqlStore::updatersIn(const std::string& deptId, const std::string& folderId) {
    Person person;
    return m_statements.list(queries::DocUpdaters, person, into(person.username), into(person.realname),
                             use(deptId, "dept"), use(folderId, "folder"));
}

}  // namespace disclosure
