#pragma once

#include "service/domain/Passwords.h"
#include "service/ports/IStore.h"

namespace disclosure {

/// The demonstration's first department.
inline constexpr auto DemoDept = "demo-dept-1";

/// Fills in the demonstration: an organisation with two departments, their people, projects and rights, and the
/// catalogs of a building site for the first. Done again, it changes nothing that somebody has changed since. Returns
/// whether the catalogs are new. Throws std::invalid_argument where others have departments.
bool seedDemo(IStore& store, const Passwords& passwords);

}  // namespace disclosure
