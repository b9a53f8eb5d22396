#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// A document of the store, with its newest content.
struct DocFileRecord {
    std::wstring id;
    std::wstring name;  // with its extension
    std::wstring uuid;  // file key
    std::wstring md5;
    std::wstring extension;
    int32_t size = 0;        // bytes
    std::wstring weaveTime;  // when it was compiled, "yyyy-MM-dd"
    std::wstring updateBy;   // shown name
    std::wstring tag;        // several joined by "、"
    bool isDeleted = false;  // it can still be read, but not linked anew
};

/// Somebody who has changed documents.
struct DocUpdaterRecord {
    std::wstring userName;
    std::wstring name;  // shown name
};

/// The tag of documents that have none; no real one is called so.
inline constexpr wchar_t kNoTag[] = L"none";

/// What a page of documents is asked by; an empty text filters nothing.
struct DocFileQuery {
    std::wstring folderId;
    std::wstring fileType;
    std::wstring updateBy;  // user name
    std::wstring tagId;     // `kNoTag` asks for what has none
    std::wstring nameKey;
    int64_t startSeconds = 0;  // of the compiled time, since 1970-01-01 UTC, both ends included; the total range of
    int64_t endSeconds = 0;    // CKpxTimeValue filters nothing, any other leaves out what has no compiled time
    int32_t pageSize = 0;
    int32_t currentPage = 1;
};

/// Lists documents. Registered as "KPX_DOCFILELIST_MGR".
class HOSTSDK_API IKpxDocFileListMgr {
public:
    /// Who last changed documents of the folder, each once. Lists are left as they were on failure, here and below.
    virtual bool GetUpdaters(std::vector<DocUpdaterRecord>& updaters, const std::wstring& folderId) = 0;
    /// One page; `total` counts the documents of all pages.
    virtual bool PageFiles(std::vector<DocFileRecord>& files, int32_t& total, const DocFileQuery& query) = 0;
    /// The documents of a department as they are now, deleted ones too; what is not known there is left out. An empty
    /// `deptId` means the current project's.
    virtual bool FindFiles(std::vector<DocFileRecord>& files, const std::vector<std::wstring>& ids,
                           const std::wstring& deptId) = 0;

protected:
    ~IKpxDocFileListMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
