#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASETOOLS {

/// A new random UUID: 36 characters, lower case, without braces.
HOSTSDK_API std::wstring GenerateUUID();

}  // namespace BASETOOLS
