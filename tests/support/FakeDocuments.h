#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "sdk/basecore/ManagerNames.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/documents/IKpxDocConfigMgr.h"
#include "sdk/packages/documents/IKpxDocFileListMgr.h"
#include "sdk/packages/documents/IKpxDocFolderMgr.h"
#include "sdk/packages/documents/IKpxDocOperMgr.h"
#include "sdk/packages/documents/IKpxDocTagMgr.h"
#include "tests/support/FakeCore.h"

namespace support {

/// A document store in memory behind the host's five managers. Notes what it is asked and fails on demand.
class FakeDocuments final : public BASECORE::FRAME::CMgrObject,
                            public DOCUMENTPACKAGE::IKpxDocFolderMgr,
                            public DOCUMENTPACKAGE::IKpxDocConfigMgr,
                            public DOCUMENTPACKAGE::IKpxDocFileListMgr,
                            public DOCUMENTPACKAGE::IKpxDocTagMgr,
                            public DOCUMENTPACKAGE::IKpxDocOperMgr {
public:
    /// Registers itself by all five names.
    explicit FakeDocuments(FakeCore& core) : CMgrObject(L"documents") {
        for (const wchar_t* name : kNames)
            core.managers[name] = this;
    }

    static constexpr const wchar_t* kNames[] = {BASECORE::NAMES::kDocumentFolders, BASECORE::NAMES::kDocumentConfig,
                                                BASECORE::NAMES::kDocumentFileList, BASECORE::NAMES::kDocumentTags,
                                                BASECORE::NAMES::kDocumentOperations};

    struct Stored {
        std::wstring folderId;
        DOCUMENTPACKAGE::DocFileRecord file;
    };
    std::vector<DOCUMENTPACKAGE::DocFolderRecord> folders{{L"0", L"", L"全部资料"},
                                                          {L"plans", L"0", L"图纸"},
                                                          {L"tower", L"plans", L"一号楼"},
                                                          {L"safety", L"0", L"安全"}};
    std::vector<Stored> files;
    std::vector<DOCUMENTPACKAGE::DocFileQuery> queries;
    std::vector<std::wstring> calls;  // "folders", "types", "tags", "updaters of x", "page", "find", "open ..."
    std::wstring refused;             // the calls that begin so fail

    /// `count` documents "d0", "d1", ... of the folder.
    void fill(int count, const std::wstring& folderId = L"plans") {
        for (int i = 0; i < count; ++i) {
            const std::wstring number = std::to_wstring(files.size());
            files.push_back({folderId,
                             {L"d" + number, L"资料" + number + L".pdf", L"u" + number, L"m" + number, L"pdf", 100,
                              L"2024-03-01", L"李娜", L"安全、钢筋", false}});
        }
    }

    bool GetFolders(std::vector<DOCUMENTPACKAGE::DocFolderRecord>& list, int32_t) override {
        return answer(L"folders", list, folders);
    }
    bool GetFileTypes(std::vector<std::wstring>& names) override {
        return answer(L"types", names, {L"全部", L"图纸", L"文档"});
    }
    bool GetExtensions(std::vector<std::wstring>&, const std::wstring&) override { return false; }
    bool GetTags(std::vector<DOCUMENTPACKAGE::DocTagRecord>& tags) override {
        return answer(L"tags", tags, {{L"t1", L"安全"}, {L"t2", L"<b>钢筋</b>"}});
    }
    bool GetUpdaters(std::vector<DOCUMENTPACKAGE::DocUpdaterRecord>& updaters, const std::wstring& folderId) override {
        return answer(L"updaters of " + folderId, updaters,
                      {{L"lina", L"李娜"}, {L"zhang1", L"张伟"}, {L"zhang2", L"张伟"}});
    }
    bool PageFiles(std::vector<DOCUMENTPACKAGE::DocFileRecord>& page, int32_t& total,
                   const DOCUMENTPACKAGE::DocFileQuery& query) override {
        queries.push_back(query);
        std::vector<DOCUMENTPACKAGE::DocFileRecord> found;
        for (const Stored& stored : files)
            if (!stored.file.isDeleted && (query.folderId == L"0" || stored.folderId == query.folderId) &&
                stored.file.name.find(query.nameKey) != std::wstring::npos)
                found.push_back(stored.file);
        const auto size = static_cast<std::size_t>(query.pageSize);
        const std::size_t first = std::min(found.size(), static_cast<std::size_t>(query.currentPage - 1) * size);
        if (!answer(L"page", page,
                    {found.begin() + static_cast<std::ptrdiff_t>(first),
                     found.begin() + static_cast<std::ptrdiff_t>(std::min(found.size(), first + size))}))
            return false;
        total = static_cast<int32_t>(found.size());
        return true;
    }
    bool FindFiles(std::vector<DOCUMENTPACKAGE::DocFileRecord>& list, const std::vector<std::wstring>& ids,
                   const std::wstring& deptId) override {
        std::vector<DOCUMENTPACKAGE::DocFileRecord> found;
        for (const Stored& stored : files)
            if (std::count(ids.begin(), ids.end(), stored.file.id) > 0)
                found.push_back(stored.file);
        return answer(L"find in " + deptId, list, found);
    }
    bool OpenDocument(const std::wstring& uuid, const std::wstring& md5, const std::wstring& name,
                      const std::wstring& deptId) override {
        calls.push_back(L"open " + uuid + L" " + md5 + L" " + name + L" in " + deptId);
        return true;
    }

private:
    template <class List>
    bool answer(const std::wstring& call, List& list, const List& what) {
        calls.push_back(call);
        if (!refused.empty() && call.rfind(refused, 0) == 0)
            return false;
        list = what;
        return true;
    }
};

}  // namespace support
