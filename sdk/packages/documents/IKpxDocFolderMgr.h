#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// The id of the store's top folder.
inline constexpr wchar_t kTopFolder[] = L"0";

/// A folder of the document store.
struct DocFolderRecord {
    std::wstring id;
    std::wstring parentId;  // empty at the top
    std::wstring name;
};

/// The folders of a project's documents. Registered as "KPX_DOCFOLDER_MGR".
class HOSTSDK_API IKpxDocFolderMgr {
public:
    /// Parents first; the first one is the top (`kTopFolder`), which lists the documents of all folders, any other only
    /// its own. False when they cannot be read.
    virtual bool GetFolders(std::vector<DocFolderRecord>& folders, int32_t ppid) = 0;

protected:
    ~IKpxDocFolderMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
