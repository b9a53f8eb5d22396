#pragma once

#include <string>

#include "service/ports/IStore.h"

namespace disclosure {

/// Takes over the departments and projects of a TOML file, all or none: adds those that are missing and renames those
/// that are called otherwise. Throws with the reason when the file is wrong.
void takeOverOrganisation(IStore& store, const std::string& file);

}  // namespace disclosure
