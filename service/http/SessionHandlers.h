#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// Logging in and out.
Response login(Call& call);
Response logout(Call& call);

}  // namespace disclosure
