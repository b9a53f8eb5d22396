#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// The files: letting one come, sending one, and taking one's own back.
Response beginUpload(Call& call);
Response sendFile(Call& call);
Response takeBackFile(Call& call);

/// Answers an upload that has become a file.
Response uploaded(const StoredFile& file);

}  // namespace disclosure
