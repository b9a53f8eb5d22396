#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// The catalog operations, from checked request to answer.
Response listCatalogs(Call& call);
Response saveCatalog(Call& call);
Response renameCatalog(Call& call);
Response moveCatalog(Call& call);
Response deleteCatalog(Call& call);

}  // namespace disclosure
