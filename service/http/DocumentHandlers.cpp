#include "service/http/DocumentHandlers.h"

#include <algorithm>

#include "service/domain/DocumentFolders.h"
#include "service/domain/DocumentTypes.h"
#include "service/domain/Names.h"
#include "service/domain/TaskChecks.h"
#include "service/http/DocumentJson.h"
#include "service/http/QueryValues.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::int32_t UsualPage = 15;
constexpr std::int32_t LargestPage = 200;
constexpr std::size_t MostFound = 100;
constexpr std::int64_t Second = 1000;

template <class List, class Write>
void writeList(JsonWriter& writer, const List& list, Write&& writeElement) {
    writer.StartArray();
    for (const auto& element : list)
        writeElement(writer, element);
    writer.EndArray();
}

template <class List, class Write>
Response listed(const List& list, Write&& writeElement) {
    return success([&](JsonWriter& writer) { writeList(writer, list, writeElement); });
}

std::string folderIn(const Call& call) {
    return DocumentFolders::existing(*call.store, call.deptId, textIn(call, "folderId"));
}

std::vector<std::string> extensionsOf(const std::string& typeName) {
    if (typeName.empty())
        return {};
    for (const DocumentType& type : documentTypes())
        if (type.name == typeName)
            return {type.extensions.begin(), type.extensions.end()};
    malformed("参数type无效");
}

/// Both bounds are in whole seconds, of which the last is whole as well.
void readRange(const Call& call, DocumentFilter& filter) {
    constexpr std::int64_t LastSecond = LastDate / Second;
    const auto from = std::clamp<std::int64_t>(numberIn<std::int64_t>(call, "startSeconds", -1), -1, LastSecond + 1);
    const auto to = std::min(numberIn<std::int64_t>(call, "endSeconds", -1), LastSecond);
    if (from < 0 && to < 0)
        return;
    filter.from = std::max<std::int64_t>(1, from * Second);
    filter.to = to < 0 ? LastDate : to * Second + Second - 1;
}

DocumentFilter filterOf(const Call& call) {
    DocumentFilter filter;
    filter.deptId = call.deptId;
    filter.folderId = folderIn(call);
    filter.extensions = extensionsOf(textIn(call, "type"));
    filter.updatedBy = textIn(call, "updateBy");
    filter.tagId = textIn(call, "tag");
    filter.keyword = textIn(call, "keyword");
    readRange(call, filter);
    const auto deleted = numberIn<std::int32_t>(call, "deleted", 0);
    if (deleted != 0 && deleted != 1)
        malformed("参数deleted无效");
    filter.deleted = deleted == 1;
    const Paging paging = pagingOf(call, UsualPage, LargestPage);
    filter.offset = paging.offset;
    filter.limit = paging.limit;
    return filter;
}

Documents rulesFor(const Call& call) {
    return {*call.store, call.username, call.now};
}

}  // namespace

Response documentFolders(Call& call) {
    return listed(call.store->folders(call.deptId), writeFolder);
}

Response documentUpdaters(Call& call) {
    return listed(call.store->updatersIn(call.deptId, folderIn(call)), [](JsonWriter& writer, const Person& person) {
        writer.StartObject();
        write(writer, "userName", person.username);
        write(writer, "realname", person.realname);
        writer.EndObject();
    });
}

Response documentTags(Call& call) {
    return listed(call.store->tags(call.deptId), [](JsonWriter& writer, const DocumentTag& tag) {
        writer.StartObject();
        write(writer, "id", tag.id);
        write(writer, "name", tag.name);
        writer.EndObject();
    });
}

Response listDocumentTypes(Call&) {
    return listed(documentTypes(), [](JsonWriter& writer, const DocumentType& type) {
        writer.StartObject();
        write(writer, "name", std::string(type.name));
        writer.Key("extensions");
        writeList(writer, type.extensions, [](JsonWriter& each, std::string_view extension) {
            each.String(extension.data(), static_cast<rapidjson::SizeType>(extension.size()));
        });
        writer.EndObject();
    });
}

Response pageDocuments(Call& call) {
    const DocumentFilter filter = filterOf(call);
    if (filter.deleted && !call.rights.contains(Right::DeleteTasks))
        throw Refusal(reasons::NoRightDeleteDocuments);
    DocumentPage page;
    if (lengthOf(filter.keyword) <= LongestName)  // a longer one is part of none
        page = call.store->pageDocuments(filter);
    return success([&](JsonWriter& writer) {
        writer.StartObject();
        write(writer, "total", page.total);
        writer.Key("list");
        writeList(writer, page.documents, writeDocument);
        writer.EndObject();
    });
}

Response findDocuments(Call& call) {
    std::vector<std::string> ids;
    const std::string& text = textIn(call, "ids");
    for (std::size_t start = 0; start < text.size();) {
        const auto end = std::min(text.find(',', start), text.size());
        ids.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    if (ids.size() > MostFound)
        malformed("参数ids最多100个");
    return listed(call.store->documents(call.deptId, ids), writeDocument);
}

Response documentContents(Call& call) {
    const auto found = call.store->documents(call.deptId, {textIn(call, "id")});
    if (found.empty())
        throw Refusal(reasons::NoDocument);
    return listed(call.store->contentsOf(found.front()), writeContent);
}

Response saveFolder(Call& call) {
    DocumentFolders(*call.store)
        .save(call.deptId, textOf(call.body, "id"), textOf(call.body, "name"), textOf(call.body, "parentId"));
    return done();
}

Response updateFolder(Call& call) {
    DocumentFolders(*call.store)
        .update(call.deptId, textOf(call.body, "id"), maybeText(call.body, "name"), maybeText(call.body, "parentId"),
                call.rights);
    return done();
}

Response deleteFolder(Call& call) {
    DocumentFolders(*call.store).remove(call.deptId, textOf(call.body, "id"));
    return done();
}

Response saveDocument(Call& call) {
    rulesFor(call).save(call.deptId, textOf(call.body, "id"), textOf(call.body, "uuid"), documentChangeOf(call.body));
    return done();
}

Response updateDocuments(Call& call) {
    rulesFor(call).update(call.deptId, textsOf(call.body, "ids"), documentChangeOf(call.body), call.rights);
    return done();
}

Response deleteDocuments(Call& call) {
    rulesFor(call).remove(call.deptId, textsOf(call.body, "ids"), numberOf(call.body, "isForced", 0) == 1);
    return done();
}

Response restoreDocuments(Call& call) {
    rulesFor(call).restore(call.deptId, textsOf(call.body, "ids"));
    return done();
}

}  // namespace disclosure
