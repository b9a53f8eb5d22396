#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// The service about itself.
Response alive(Call& call);
Response ready(Call& call);
Response description(Call& call);

}  // namespace disclosure
