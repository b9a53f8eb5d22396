#pragma once

#include <string>

#include "sdk/Export.h"

namespace DISCLOSUREPACKAGE {

/// Why the last operation of the service layer that called the service failed, for the user; empty when it succeeded.
/// "已取消" where the user gave up waiting.
HOSTSDK_API std::wstring LastFailure();
/// The host has shown the reason already, as it does with what the service itself refuses.
HOSTSDK_API bool IsLastFailureShown();
/// Kept by the service layer; process-wide, of the UI thread only. A screen that wants to know clears it before its
/// operation, which may fail without calling the service.
HOSTSDK_API void SetLastFailure(const std::wstring& reason, bool isShown = false);

}  // namespace DISCLOSUREPACKAGE
