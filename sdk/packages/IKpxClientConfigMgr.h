#pragma once

#include <string>

#include "sdk/Export.h"

namespace PROJECTPACKAGE {

/// Settings of this user on this machine. Registered as "KpxClientConfigMgr".
class HOSTSDK_API IKpxClientConfigMgr {
public:
    /// The text stored under `key`; empty when there is none.
    virtual std::wstring GetValue(const std::wstring& key) const = 0;
    /// False when it could not be stored durably.
    virtual bool SetValue(const std::wstring& key, const std::wstring& value) = 0;

protected:
    ~IKpxClientConfigMgr() = default;
};

}  // namespace PROJECTPACKAGE
