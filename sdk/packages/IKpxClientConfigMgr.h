#pragma once

#include <string>

#include "sdk/Export.h"

namespace PROJECTPACKAGE {

/// How many seconds connecting to the service may take (5 where it is not set), and how many it may be silent (30).
inline constexpr wchar_t kConnectSeconds[] = L"Service/ConnectSeconds";
inline constexpr wchar_t kSilenceSeconds[] = L"Service/SilenceSeconds";

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
