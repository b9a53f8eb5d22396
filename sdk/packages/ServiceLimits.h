#pragma once

#include <chrono>

#include "sdk/Export.h"

namespace PROJECTPACKAGE {

class IKpxClientConfigMgr;

/// How long one waits for the service.
struct ServiceLimits {
    std::chrono::seconds connect{5};   // until a request has gone out
    std::chrono::seconds silence{30};  // while nothing moves; the whole may take any time
};

/// The keys of the user's own limits, in whole seconds.
inline constexpr wchar_t kConnectSeconds[] = L"Service/ConnectSeconds";
inline constexpr wchar_t kSilenceSeconds[] = L"Service/SilenceSeconds";

/// The user's limits; the usual ones where there is no configuration, or it has none between a second and an hour.
HOSTSDK_API ServiceLimits ReadServiceLimits(const IKpxClientConfigMgr* config);

}  // namespace PROJECTPACKAGE
