#pragma once

#include "sdk/Export.h"

namespace BASEPACKAGE {

/// The current user's rights. Registered as "KpxAuthMgr".
class HOSTSDK_API IAuthInfoMgr {
public:
    /// Whether the current user holds the right with this code in the current project's department. The code of a key
    /// comes from `BASETOOLS::CAuthCodeTool`.
    virtual bool HasAuth(int authCode) const = 0;

protected:
    ~IAuthInfoMgr() = default;
};

}  // namespace BASEPACKAGE
