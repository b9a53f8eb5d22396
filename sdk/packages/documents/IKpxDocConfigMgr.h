#pragma once

#include <string>
#include <vector>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// How the documents are classified. Registered as "KPX_DOCCONFIG_MGR".
class HOSTSDK_API IKpxDocConfigMgr {
public:
    /// The names of the file types in the order to show them; the first is the default.
    virtual bool GetFileTypes(std::vector<std::wstring>& names) = 0;
    /// The extensions, lower case and without a dot, that a file type stands for; none for one that means every file.
    virtual bool GetExtensions(std::vector<std::wstring>& extensions, const std::wstring& fileType) = 0;

protected:
    ~IKpxDocConfigMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
