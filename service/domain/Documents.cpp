#include "service/domain/Documents.h"

#include <algorithm>
#include <set>

#include "service/domain/DocumentFolders.h"
#include "service/domain/Names.h"
#include "service/domain/NewId.h"
#include "service/domain/Refusal.h"
#include "service/domain/TaskChecks.h"
#include "service/ports/Changing.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr NameReasons Why{reasons::DocumentNameEmpty, reasons::DocumentNameTooLong, reasons::DocumentNameForbidden};
constexpr std::size_t LongestTag = 32;
constexpr std::size_t ClearedAtOnce = 100;  // so that others get to write in between

/// The name as it is stored, which ends with the extension of the content.
std::string nameFor(const std::string& name, const std::string& extension) {
    std::string checked = checkedName(name, Why);
    return extensionOf(checked) == extension ? checked : checkedName(checked + "." + extension, Why);
}

std::int64_t checkedTime(std::int64_t time) {
    if (time > LastDate)
        throw Refusal(reasons::BadDate);
    return std::max<std::int64_t>(0, time);
}

std::string checkedTag(const std::string& name) {
    std::string tag = trimmed(name);
    const std::string plain = foldedCase(tag);
    if (hasControls(name, false) || !showsSomething(tag) || lengthOf(tag) > LongestTag || plain == "all" ||
        plain == DocumentFilter::Untagged || tag.find("、") != std::string::npos)
        throw Refusal(reasons::BadTag);
    return tag;
}

void take(Document& document, const StoredFile& file) {
    document.uuid = file.key.uuid;
    document.md5 = file.md5;
    document.size = file.size;
    document.extension = file.extension;
}

}  // namespace

void Documents::save(const std::string& deptId, std::string id, const std::string& uuid, const DocumentChange& change) {
    if (id.empty())
        id = newId();
    else if (!isId(id))
        throw Refusal(reasons::BadDocumentId);
    const auto known = m_store.documents(deptId, {id});
    if (!known.empty()) {
        if (known.front().isDeleted)
            throw Refusal(reasons::NoDocument);
        const auto contents = m_store.contentsOf(known.front());
        const auto isIt = [&](const DocumentContent& content) { return content.uuid == uuid; };
        if (std::any_of(contents.begin(), contents.end(), isIt))
            return;
    }
    const auto file = m_store.file({deptId, uuid});
    if (!file)
        throw Refusal(reasons::DocNotStored);
    Document document = known.empty() ? Document() : known.front();
    if (known.empty()) {
        document.deptId = deptId;
        document.id = id;
        document.name = nameFor(change.name.value_or(""), file->extension);
        document.folderId = DocumentFolders::existing(m_store, deptId, change.folderId.value_or(TopFolder));
        document.tags = tagsNamed(deptId, change.tags.value_or(std::vector<std::string>()));
    } else {
        if (document.contentNumber >= MostContents)
            throw Refusal(reasons::TooManyContents);
        ++document.contentNumber;
        if (document.extension != file->extension)
            document.name = checkedName(document.name.substr(0, document.name.rfind('.') + 1) + file->extension, Why);
    }
    take(document, *file);
    if (change.wovenAt)
        document.wovenAt = checkedTime(*change.wovenAt);
    touch(document);
    if (known.empty())
        m_store.addDocument(document);
    else
        m_store.putDocument(document, known.front());
}

void Documents::update(const std::string& deptId, const std::vector<std::string>& ids, const DocumentChange& change,
                       const Rights& rights) {
    if (!rights.contains(Right::EditTasks) && !rights.contains(Right::DeleteTasks))
        throw Refusal(reasons::NoRightDocuments);
    const auto before = chosen(deptId, ids);
    if (change.name && before.size() > 1)
        throw Refusal(reasons::OneNameForMany);
    std::optional<std::string> folderId;
    if (change.folderId)
        folderId = DocumentFolders::existing(m_store, deptId, *change.folderId);
    std::optional<std::vector<DocumentTag>> tags;
    if (change.tags)
        tags = tagsNamed(deptId, *change.tags);
    for (const Document& old : before) {
        if (old.isDeleted)
            throw Refusal(reasons::NoDocument);
        Document document = old;
        document.folderId = folderId.value_or(old.folderId);
        if (change.name)
            document.name = nameFor(*change.name, old.extension);
        if (change.wovenAt)
            document.wovenAt = checkedTime(*change.wovenAt);
        document.tags = tags.value_or(old.tags);
        const bool moves = document.folderId != old.folderId;
        const bool edits = document.name != old.name || document.wovenAt != old.wovenAt || document.tags != old.tags;
        if (edits && !rights.contains(Right::EditTasks))
            throw Refusal(reasons::NoRightDocuments);
        if (moves && !rights.contains(Right::DeleteTasks))
            throw Refusal(reasons::NoRightMoveDocuments);
        if (!moves && !edits)
            continue;
        touch(document);
        m_store.putDocument(document, old);
    }
}

void Documents::remove(const std::string& deptId, const std::vector<std::string>& ids, bool forced) {
    auto before = chosen(deptId, ids);
    std::erase_if(before, [](const Document& document) { return document.isDeleted; });
    if (!forced) {
        std::vector<std::string> there;
        for (const Document& document : before)
            there.push_back(document.id);
        const DocumentLinks links = m_store.linksTo(deptId, there);
        if (links.tasks > 0)
            throw Refusal(reasons::DocumentsLinked,
                          std::to_string(links.documents) + "份资料，" + std::to_string(links.tasks) + "个任务",
                          {{"documents", links.documents}, {"tasks", links.tasks}});
    }
    for (const Document& old : before) {
        Document document = old;
        document.isDeleted = true;
        touch(document);
        m_store.putDocument(document, old);
    }
}

void Documents::restore(const std::string& deptId, const std::vector<std::string>& ids) {
    for (const Document& old : chosen(deptId, ids)) {
        if (!old.isDeleted)
            continue;
        Document document = old;
        document.isDeleted = false;
        touch(document);
        m_store.putDocument(document, old);
    }
}

std::vector<Document> Documents::chosen(const std::string& deptId, const std::vector<std::string>& ids) {
    const std::set<std::string> once(ids.begin(), ids.end());
    if (once.empty())
        throw Refusal(reasons::NoDocumentChosen);
    if (once.size() > MostChosen)
        throw Refusal(reasons::TooManyDocumentsChosen);
    auto found = m_store.documents(deptId, {once.begin(), once.end()});
    if (found.size() != once.size())
        throw Refusal(reasons::NoDocument);
    return found;
}

std::vector<DocumentTag> Documents::tagsNamed(const std::string& deptId, const std::vector<std::string>& names) {
    std::vector<DocumentTag> tags;
    std::set<std::string> once;
    for (const std::string& name : names) {
        const std::string wanted = checkedTag(name);
        if (!once.insert(wanted).second)
            continue;
        if (once.size() > MostTags)
            throw Refusal(reasons::TooManyTags);
        auto tag = m_store.tagNamed(deptId, wanted);
        if (!tag) {
            if (m_store.tagCount(deptId) >= MostTagsOfAll)
                throw Refusal(reasons::TooManyTagsOfAll);
            tag = {newId(), wanted};
            m_store.addTag(deptId, *tag);
        }
        tags.push_back(*tag);
    }
    return tags;
}

void Documents::touch(Document& document) const {
    document.updatedBy = m_username;
    document.updatedAt = m_now;
}

void clearDeletedDocuments(IStore& store, std::int64_t before, const GoOn& goOn) {
    std::vector<Document> found;
    do {
        changing(store, [&] {
            found = store.looseDocuments(before, ClearedAtOnce);
            for (const Document& document : found)
                if (store.linksTo(document.deptId, {document.id}).tasks > 0)
                    store.holdDocument(document);
                else
                    store.removeDocument(document);
        });
    } while (goOn() && found.size() == ClearedAtOnce);
}

}  // namespace disclosure
