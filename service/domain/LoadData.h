#pragma once

#include <cstdint>
#include <string>

#include "service/domain/Passwords.h"
#include "service/ports/IStore.h"

namespace disclosure {

/// How large a department is made up.
struct LoadSettings {
    std::string deptId = "load-dept";
    std::int64_t tasks = 1'000'000;
    std::int32_t catalogs = 4000;
    std::uint32_t seed = 1;
};

/// Adds a department of its own with a project, people, catalogs and very many tasks, for trying the service at size.
/// The same settings make the same data. It is added in short transactions, so that others can write meanwhile, and
/// nobody belongs to the department before all of it is there: where this was ended in between, it goes on when called
/// with the same settings. The person named as the department, with that for a password, may do everything in it.
/// Throws std::invalid_argument when the department is there already.
void seedLoad(IStore& store, const Passwords& passwords, const LoadSettings& settings);

}  // namespace disclosure
