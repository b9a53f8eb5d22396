#pragma once

#include <string>

#include "sdk/Export.h"

namespace PROJECTPACKAGE {

/// Writes the record of what the user did.
class HOSTSDK_API IFunctionLogger {
public:
    /// `title` names the action, `path` where it is found, as in "技术→交底管理→新建目录". Returns 0 when written.
    virtual int Write(const std::wstring& title, const std::wstring& path) = 0;

protected:
    ~IFunctionLogger() = default;
};

/// Offers the logger of user actions. Registered as "AppFunctionLogMgr".
class HOSTSDK_API IFunctionLogMgr {
public:
    /// Never null. Owned by the manager.
    virtual IFunctionLogger* GetLogger() = 0;

protected:
    ~IFunctionLogMgr() = default;
};

}  // namespace PROJECTPACKAGE
