#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace disclosure {

/// What a request asks for, decoded: the path, and the query's values by key.
struct Target {
    std::string path;
    std::map<std::string, std::string> query;
};

/// Throws `HttpError` 400 when the target is not an absolute path, has a bad percent sequence, names a key twice, or
/// decodes to something that is not UTF-8 or contains NUL. A plus sign in the query is a blank.
Target parsedTarget(std::string_view target);

/// Whether the Host header's name, its port aside, is one of the loopback's or of `names`.
bool isOwnHost(std::string_view host, const std::vector<std::string>& names);

/// The value of the named cookie of a Cookie header; empty when there is none.
std::string_view cookieOf(std::string_view header, std::string_view name);

}  // namespace disclosure
