#pragma once

#include <functional>
#include <string>

#include "service/domain/Passwords.h"
#include "service/ports/IStore.h"

namespace disclosure {

/// The demonstration's first department.
inline constexpr auto DemoDept = "demo-dept-1";

/// Fills in the demonstration: an organisation with two departments, their people, projects and rights, and the
/// catalogs of a building site for the first. Done again, it changes nothing that somebody has changed since. Returns
/// whether the catalogs are new. Throws std::invalid_argument where others have departments.
bool seedDemo(IStore& store, const Passwords& passwords);

/// Puts the content on the disk as the file of that uuid; returns its MD5.
using KeepContent = std::function<std::string(const std::string& uuid, const std::string& content)>;

}  // namespace disclosure
