#include "service/http/Target.h"

#include <algorithm>
#include <boost/beast/core/string.hpp>

#include "service/http/HttpError.h"
#include "service/text/Percent.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

[[noreturn]] void malformed() {
    throw HttpError(boost::beast::http::status::bad_request, "请求地址无效");
}

std::string decoded(std::string_view text) {
    auto result = percentDecoded(text);
    if (!result || !isUtf8(*result) || result->find('\0') != std::string::npos)
        malformed();
    return std::move(*result);
}

std::string decodedQuery(std::string_view text) {
    std::string blanks(text);
    std::replace(blanks.begin(), blanks.end(), '+', ' ');
    return decoded(blanks);
}

std::string_view takeUpTo(std::string_view& text, char separator) {
    const auto end = std::min(text.find(separator), text.size());
    const auto part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

}  // namespace

Target parsedTarget(std::string_view text) {
    if (text.empty() || text.front() != '/')
        malformed();
    Target target;
    text = takeUpTo(text, '#');
    target.path = decoded(takeUpTo(text, '?'));
    while (!text.empty()) {
        auto value = takeUpTo(text, '&');
        if (value.empty())
            continue;
        const auto key = takeUpTo(value, '=');
        if (!target.query.emplace(decodedQuery(key), decodedQuery(value)).second)
            malformed();
    }
    return target;
}

bool isOwnHost(std::string_view host, const std::vector<std::string>& names) {
    const auto colon = host.rfind(':');
    if (colon != std::string_view::npos && host.find(']', colon) == std::string_view::npos) {
        const auto port = host.substr(colon + 1);
        if (!std::all_of(port.begin(), port.end(), [](char c) { return c >= '0' && c <= '9'; }))
            return false;
        host = host.substr(0, colon);
    }
    const auto same = [&](std::string_view name) {
        return boost::beast::iequals({host.data(), host.size()}, {name.data(), name.size()});
    };
    return same("localhost") || same("127.0.0.1") || same("[::1]") || std::any_of(names.begin(), names.end(), same);
}

std::string_view cookieOf(std::string_view header, std::string_view name) {
    while (!header.empty()) {
        auto value = takeUpTo(header, ';');
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
        if (takeUpTo(value, '=') == name)
            return value;
    }
    return {};
}

}  // namespace disclosure
