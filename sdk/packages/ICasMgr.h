#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASEPACKAGE {

/// Who is logged in. Registered as "CENTRALAUTHENTICATIONSERVICE_MGR " (the blank belongs to the name).
class HOSTSDK_API ICasMgr {
public:
    /// The login name; empty when nobody is logged in.
    virtual std::wstring GetUserName() const = 0;
    /// The display name; empty when nobody is logged in.
    virtual std::wstring GetRealName() const = 0;

protected:
    ~ICasMgr() = default;
};

}  // namespace BASEPACKAGE
