#include "commands/DisclosureManage/ui/document/DocumentLinks.h"

#include <algorithm>
#include <utility>

#include "sdk/basetools/Uuid.h"

using DISCLOSUREPACKAGE::TaskDocRecord;
using DISCLOSUREPACKAGE::UploadedFileRecord;
using DOCUMENTPACKAGE::DocFileRecord;

namespace {

constexpr int32_t kFromStore = 0;

/// A file that was given again has another key.
bool isSameContent(const std::wstring& uuid, const std::wstring& md5, const std::wstring& otherUuid,
                   const std::wstring& otherMd5) {
    return uuid == otherUuid || (!md5.empty() && md5 == otherMd5);
}

auto linkOf(const DocumentLinks& docs, const std::wstring& documentId) {
    return std::find_if(docs.begin(), docs.end(),
                        [&](const TaskDocRecord& doc) { return IsOfStore(doc) && doc.refDocId == documentId; });
}

}  // namespace

TaskDocRecord LinkTo(const DocFileRecord& file, int32_t ppid) {
    TaskDocRecord doc;
    doc.id = BASETOOLS::GenerateUUID();
    doc.ppid = ppid;
    doc.name = file.name;
    doc.uuid = file.uuid;
    doc.md5 = file.md5;
    doc.size = file.size;
    doc.extension = file.extension;
    doc.sourceType = kFromStore;
    doc.refDocId = file.id;
    return doc;
}

TaskDocRecord LinkTo(const UploadedFileRecord& file) {
    TaskDocRecord doc;
    doc.id = file.id;
    doc.ppid = file.ppid;
    doc.name = file.name;
    doc.uuid = file.uuid;
    doc.md5 = file.md5;
    doc.size = file.size;
    doc.extension = file.extension;
    doc.sourceType = file.sourceType;
    return doc;
}

bool IsOfStore(const TaskDocRecord& doc) {
    return doc.sourceType == kFromStore && !doc.refDocId.empty();
}

bool MeansContent(const TaskDocRecord& doc, const DocFileRecord& file) {
    return isSameContent(doc.uuid, doc.md5, file.uuid, file.md5);
}

void ReplaceStoreDocuments(DocumentLinks& docs, const DocumentLinks& chosen) {
    DocumentLinks added;
    std::copy_if(chosen.begin(), chosen.end(), std::back_inserter(added),
                 [&](const TaskDocRecord& doc) { return linkOf(docs, doc.refDocId) == docs.end(); });
    std::erase_if(
        docs, [&](const TaskDocRecord& doc) { return IsOfStore(doc) && linkOf(chosen, doc.refDocId) == chosen.end(); });
    for (TaskDocRecord& doc : docs) {
        const auto choice = IsOfStore(doc) ? linkOf(chosen, doc.refDocId) : chosen.end();
        if (choice == chosen.end() || isSameContent(doc.uuid, doc.md5, choice->uuid, choice->md5))
            continue;
        const TaskDocRecord old = std::exchange(doc, *choice);
        doc.id = old.id;
        doc.disclosureTaskId = old.disclosureTaskId;
        doc.ppid = old.ppid;
    }
    docs.insert(docs.end(), added.begin(), added.end());
}
