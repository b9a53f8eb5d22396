#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASETOOLS {

/// Tells whether a text can be a file name.
class HOSTSDK_API CFileNameCheck {
public:
    /// Whether `name` contains one of the nine characters \/:*?"<>| that a file name may not hold.
    static bool HasForbiddenCharacter(const std::wstring& name);
};

}  // namespace BASETOOLS
