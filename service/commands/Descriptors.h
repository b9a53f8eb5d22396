#pragma once

#include <cstddef>

#include "service/commands/Settings.h"

namespace disclosure::commands {

/// Raises the number of descriptors this process may have open to what the settings promise, as far as the system lets
/// it. Returns for how many connections that is enough, which the log says when it is fewer than promised. Throws when
/// it is enough for none.
std::size_t raiseDescriptors(const Settings& settings);

}  // namespace disclosure::commands
