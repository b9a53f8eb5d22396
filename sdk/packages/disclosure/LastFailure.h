#pragma once

#include <string>

#include "sdk/Export.h"

namespace DISCLOSUREPACKAGE {

/// Why the last operation of the service layer that called the service failed, for the user; empty when it succeeded.
/// "已取消" where the user gave up waiting. What the service itself refused has been shown by the host already.
HOSTSDK_API std::wstring LastFailure();
/// Kept by the service layer; process-wide, of the UI thread only.
HOSTSDK_API void SetLastFailure(const std::wstring& reason);

}  // namespace DISCLOSUREPACKAGE
