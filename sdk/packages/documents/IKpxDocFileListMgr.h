#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// A document of the store.
struct DocFileRecord {
    std::wstring id;
    std::wstring name;
    std::wstring uuid;  // file key
    std::wstring md5;
    std::wstring extension;
    int32_t size = 0;        // bytes
    std::wstring weaveTime;  // when it was compiled, "yyyy-MM-dd"
    std::wstring updateBy;
    std::wstring tag;
};

/// What a page of documents is asked by; an empty text filters nothing.
struct DocFileQuery {
    std::wstring folderId;
    std::wstring fileType;
    std::wstring updateBy;
    std::wstring tagId;
    bool withoutTag = false;
    std::wstring nameKey;
    int64_t startSeconds = 0;  // since 1970-01-01 UTC, both ends included
    int64_t endSeconds = 0;
    int32_t pageSize = 0;
    int32_t currentPage = 1;
};

/// Lists documents. Registered as "KPX_DOCFILELIST_MGR".
class HOSTSDK_API IKpxDocFileListMgr {
public:
    /// Who last changed documents of the folder, each once.
    virtual bool GetUpdaters(std::vector<std::wstring>& updaters, const std::wstring& folderId) = 0;
    /// One page; `total` counts the documents of all pages.
    virtual bool PageFiles(std::vector<DocFileRecord>& files, int32_t& total, const DocFileQuery& query) = 0;

protected:
    ~IKpxDocFileListMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
