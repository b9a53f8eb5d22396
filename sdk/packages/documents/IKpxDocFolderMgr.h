#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// A folder of the document store.
struct DocFolderRecord {
    std::wstring id;
    std::wstring parentId;  // empty at the top
    std::wstring name;
};

/// The folders of a project's documents. Registered as "KPX_DOCFOLDER_MGR".
class HOSTSDK_API IKpxDocFolderMgr {
public:
    /// Parents first. False when they cannot be read.
    virtual bool GetFolders(std::vector<DocFolderRecord>& folders, int32_t ppid) = 0;

protected:
    ~IKpxDocFolderMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
