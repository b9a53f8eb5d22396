#pragma once

#include <functional>

namespace disclosure {

/// Asked between two pieces of work: takes a rest, and answers false when it is time to end.
using GoOn = std::function<bool()>;

}  // namespace disclosure
