#include "host/managers/DocFileListMgr.h"

#include <algorithm>

#include "host/managers/DocConfigMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/TimeValue.h"
#include "sdk/packages/disclosure/LastFailure.h"

namespace workbench {
namespace {

using BASETOOLS::CKpxTimeValue;
using DOCUMENTPACKAGE::DocFileQuery;
using DOCUMENTPACKAGE::DocFileRecord;

bool fail(const QString& why) {
    DISCLOSUREPACKAGE::SetLastFailure(why.toStdWString());
    return false;
}

DocFileRecord recordOf(const Document& document) {
    DocFileRecord record;
    record.id = document.id.toStdWString();
    record.name = document.name.toStdWString();
    record.uuid = document.uuid.toStdWString();
    record.md5 = document.md5.toStdWString();
    record.extension = document.extension.toStdWString();
    record.size = document.size;
    record.weaveTime = CKpxTimeValue::ToDayText(document.weaveMills);
    record.updateBy = document.updateRealname.toStdWString();
    record.tag = document.tags.join("、").toStdWString();
    record.isDeleted = document.isDeleted;
    return record;
}

std::vector<DocFileRecord> recordsOf(const std::vector<Document>& documents) {
    std::vector<DocFileRecord> records;
    std::transform(documents.begin(), documents.end(), std::back_inserter(records), recordOf);
    return records;
}

bool isTotalRange(int64_t start, int64_t end) {
    double first = 0;
    double last = 0;
    CKpxTimeValue::GetTotalTimeDefine(first, last);
    return start <= CKpxTimeValue::OleDateToSeconds(first) && end >= CKpxTimeValue::OleDateToSeconds(last);
}

}  // namespace

CDocFileListMgr::CDocFileListMgr(DocumentStore& store)
    : CMgrObject(BASECORE::NAMES::kDocumentFileList), m_store(store) {}

bool CDocFileListMgr::GetUpdaters(std::vector<DOCUMENTPACKAGE::DocUpdaterRecord>& updaters,
                                  const std::wstring& folderId) {
    QString why;
    const auto people = m_store.updaters(QString::fromStdWString(folderId), why);
    if (!people)
        return fail(why);
    updaters.clear();
    for (const DocumentLabel& person : *people)
        updaters.push_back({person.id.toStdWString(), person.name.toStdWString()});
    return true;
}

bool CDocFileListMgr::PageFiles(std::vector<DocFileRecord>& files, int32_t& total, const DocFileQuery& query) {
    DocumentQuery asked;
    asked.folderId = QString::fromStdWString(query.folderId);
    if (query.fileType != CDocConfigMgr::everyType())
        asked.type = QString::fromStdWString(query.fileType);
    asked.updateBy = QString::fromStdWString(query.updateBy);
    asked.tagId = QString::fromStdWString(query.tagId);
    asked.keyword = QString::fromStdWString(query.nameKey);
    if (!isTotalRange(query.startSeconds, query.endSeconds))
        asked.seconds = {query.startSeconds, query.endSeconds};
    asked.page = query.currentPage;
    asked.pageSize = query.pageSize;
    QString why;
    const auto page = m_store.page(asked, why);
    if (!page)
        return fail(why);
    files = recordsOf(page->documents);
    total = page->total;
    return true;
}

bool CDocFileListMgr::FindFiles(std::vector<DocFileRecord>& files, const std::vector<std::wstring>& ids,
                                const std::wstring& deptId) {
    std::vector<Document> all;
    for (std::size_t begin = 0; begin < ids.size(); begin += DocumentStore::kMostAtOnce) {
        QStringList some;
        for (std::size_t i = begin; i < std::min(ids.size(), begin + DocumentStore::kMostAtOnce); ++i)
            some << QString::fromStdWString(ids[i]);
        QString why;
        const auto found = m_store.find(some, why, deptId);
        if (!found)
            return fail(why);
        all.insert(all.end(), found->begin(), found->end());
    }
    files = recordsOf(all);
    return true;
}

}  // namespace workbench
