#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// What the workbench reads of the organisation.
Response currentUser(Call& call);
Response projects(Call& call);
Response rights(Call& call);
Response departments(Call& call);
Response users(Call& call);

}  // namespace disclosure
