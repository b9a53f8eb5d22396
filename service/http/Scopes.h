#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// Finds what the call is about, within its transaction, and what the person may do with it. Throws `Refusal` where the
/// route's right is missing; what the person may not see is refused as missing.
void enterScope(const Route& route, Call& call);

}  // namespace disclosure
