#pragma once

#include <string>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// Opens documents for reading. Registered as "KPX_DOCOPER_MGR".
class HOSTSDK_API IKpxDocOperMgr {
public:
    /// Fetches the file `uuid` and opens it with what the machine has for `extension`, under the title `name`. False
    /// when it could not be fetched or opened; the user has then been told.
    virtual bool OpenDocument(const std::wstring& uuid, const std::wstring& name, const std::wstring& extension) = 0;

protected:
    ~IKpxDocOperMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
