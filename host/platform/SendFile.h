#pragma once

#include <string>

#include "host/platform/PlatformClient.h"

namespace workbench {

/// Brings a local file to the department's store under `name`. What the service says it has is what was sent, or the
/// upload has failed and is taken back; the result's "uuid" is the file's key.
Answer sendFile(PlatformClient& client, const std::wstring& deptId, const std::wstring& name, const Transfer& transfer);

}  // namespace workbench
