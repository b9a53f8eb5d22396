#pragma once

#include <string>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// Opens documents for reading. Registered as "KPX_DOCOPER_MGR".
class HOSTSDK_API IKpxDocOperMgr {
public:
    /// Fetches the content and shows it under the title `name`, whose extension says how. `uuid` is the file key and
    /// `md5` what it must have; an empty `deptId` means the current project's. False when it could not be fetched or
    /// shown; the user has then been told.
    virtual bool OpenDocument(const std::wstring& uuid, const std::wstring& md5, const std::wstring& name,
                              const std::wstring& deptId) = 0;

protected:
    ~IKpxDocOperMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
