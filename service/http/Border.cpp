#include "service/http/Border.h"

#include <algorithm>
#include <boost/beast/core/string.hpp>
#include <charconv>
#include <stdexcept>

#include "service/domain/Files.h"
#include "service/http/OpenApi.h"

namespace disclosure {

namespace http = boost::beast::http;

namespace {

std::string methodKey(http::verb method) {
    std::string key(http::to_string(method));
    std::transform(key.begin(), key.end(), key.begin(), [](unsigned char c) { return std::tolower(c); });
    return key;
}

/// Whether the media type is JSON; its only parameter may be the charset UTF-8.
bool isJson(std::string_view type) {
    const auto trimmed = [](std::string_view text) {
        const auto begin = std::min(text.find_first_not_of(" \t"), text.size());
        const auto end = text.find_last_not_of(" \t");
        return text.substr(begin, end == std::string_view::npos ? 0 : end + 1 - begin);
    };
    const auto same = [](std::string_view a, boost::beast::string_view b) {
        return boost::beast::iequals({a.data(), a.size()}, b);
    };
    const auto semicolon = type.find(';');
    if (!same(trimmed(type.substr(0, semicolon)), "application/json"))
        return false;
    const auto parameter = semicolon == std::string_view::npos ? "" : trimmed(type.substr(semicolon + 1));
    return parameter.empty() || same(parameter, "charset=utf-8") || same(parameter, "charset=\"utf-8\"");
}

}  // namespace

Border::Border(std::vector<std::string> hosts) : m_hosts(std::move(hosts)) {
    const OpenApi description;
    for (const Route& route : routes()) {
        const std::string path(route.path);
        const std::string method = methodKey(route.method);
        if (!description.operation(path, method))
            throw std::logic_error("openapi.yaml does not describe " + method + " " + path);
        if (auto schema = description.bodySchema(path, method))
            m_schemas.emplace(&route, std::move(schema));
    }
}

void Border::checkHost(const Request& request) const {
    if (request.count(http::field::host) != 1 || !isOwnHost(viewOf(request[http::field::host]), m_hosts))
        throw HttpError(http::status::bad_request, "Host无效");
}

std::int64_t Border::uploadSizeOf(const Request& request) {
    const auto length = viewOf(request[http::field::content_length]);
    std::int64_t size = Files::TooLarge;  // as is what does not fit
    if (request.chunked() || length.empty())
        throw HttpError(http::status::length_required, "上传文件必须说明长度");
    if (request.count(http::field::content_type) != 1 ||
        !boost::beast::iequals(request[http::field::content_type], OctetStream))
        throw HttpError(http::status::unsupported_media_type, "文件内容必须是application/octet-stream");
    std::from_chars(length.data(), length.data() + length.size(), size);
    return size;
}

const Route* Border::findRoute(const Request& request, const Target& target) {
    const auto all = routes();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Route& route) {
        return route.method == request.method() && route.matches(target.path);
    });
    return found == all.end() ? nullptr : &*found;
}

const Route& Border::routeFor(const Request& request, const Target& target) {
    if (const Route* route = findRoute(request, target))
        return *route;
    std::string allowed;
    for (const Route& route : routes()) {
        if (route.matches(target.path))
            allowed += (allowed.empty() ? "" : ", ") + std::string(http::to_string(route.method));
    }
    if (allowed.empty())
        throw HttpError(http::status::not_found, "请求的地址不存在");
    throw HttpError(http::status::method_not_allowed, "不支持的请求方法", "Allow", allowed);
}

rapidjson::Document Border::bodyFor(const Route& route, const Request& request) const {
    const auto schema = m_schemas.find(&route);
    if (schema == m_schemas.end())
        return {};
    if (request.count(http::field::content_type) != 1 || !isJson(viewOf(request[http::field::content_type])))
        throw HttpError(http::status::unsupported_media_type, "请求内容必须是application/json");
    rapidjson::Document body = parsedJson(request.body());
    rapidjson::SchemaValidator validator(*schema->second);
    if (!body.Accept(validator)) {
        JsonBuffer where;
        validator.GetInvalidDocumentPointer().Stringify(where);
        throw HttpError(http::status::bad_request, std::string("请求内容不符合要求：") + where.GetString() + " " +
                                                       validator.GetInvalidSchemaKeyword());
    }
    return body;
}

}  // namespace disclosure
