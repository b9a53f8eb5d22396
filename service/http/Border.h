#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <rapidjson/schema.h>
#include <string>
#include <vector>

#include "service/http/Messages.h"
#include "service/http/Route.h"

namespace disclosure {

/// What a request must be before anything is done with it. Throws `HttpError` where it is not.
class Border {
public:
    /// `hosts` are names besides the loopback's under which the service may be addressed.
    explicit Border(std::vector<std::string> hosts);

    void checkHost(const Request& request) const;
    /// The body as the route's schema wants it; null for a route without one.
    rapidjson::Document bodyFor(const Route& route, const Request& request) const;
    /// The size that an upload declares; it must, since room is held for it before it comes.
    static std::int64_t uploadSizeOf(const Request& request);

    /// Null when there is no such operation.
    static const Route* findRoute(const Request& request, const Target& target);
    static const Route& routeFor(const Request& request, const Target& target);

private:
    std::vector<std::string> m_hosts;
    std::map<const Route*, std::unique_ptr<rapidjson::SchemaDocument>> m_schemas;
};

}  // namespace disclosure
