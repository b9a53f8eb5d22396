#pragma once

#include <tuple>

#include "plugin/service/ServiceCall.h"

namespace DISCLOSUREPACKAGE {

/// One operation of a manager that calls the service: `attempt` gets the controller `Api`; after a renewal of the
/// session `operation`, one of the manager's interface, is called again on `manager` with the same `arguments`, given
/// as references.
template <class Api, class Manager, class Operation, class Arguments, class Attempt>
bool Perform(Manager& manager, Operation operation, const Arguments& arguments, Attempt attempt) {
    return CallService([&](auto client) { return attempt(Api(std::move(client))); },
                       [&] { return std::apply(operation, std::tuple_cat(std::tie(manager), arguments)); });
}

}  // namespace DISCLOSUREPACKAGE
