#pragma once

#include <string>

#include "sdk/Export.h"

namespace PROJECTPACKAGE {

/// Local folders, absolute, existing and without a trailing separator. Registered as "KpxPathMgr".
class HOSTSDK_API IKpxPathMgr {
public:
    /// Emptied by the host when it likes.
    virtual std::wstring GetTempFolder() const = 0;
    virtual std::wstring GetCacheFolder() const = 0;
    /// Where the plug-ins and their files lie.
    virtual std::wstring GetModuleFolder() const = 0;

protected:
    ~IKpxPathMgr() = default;
};

}  // namespace PROJECTPACKAGE
