#pragma once

#include <string>

#include "service/domain/Refusal.h"

namespace disclosure {

inline constexpr std::size_t LongestName = 128;  // UTF-16 units, as the clients count

/// Why a name is refused.
struct NameReasons {
    Reason empty;
    Reason tooLong;
    Reason forbidden;
};

/// A name of what is filed, as it is stored: without the blanks around it. Throws `Refusal` when it may not be one.
std::string checkedName(const std::string& name, const NameReasons& why);

/// What follows the last dot of a file's name, in small letters; empty without one.
std::string extensionOf(const std::string& name);

}  // namespace disclosure
