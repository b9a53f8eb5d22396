#include "client/api/ControllerApi.h"

#include <algorithm>
#include <sstream>

#include "client/api/ApiException.h"
#include "client/model/JsonBody.h"
#include "client/model/MultipartFormData.h"

namespace io::swagger::client::api {
namespace {

using utility::string_t;
using web::http::http_response;

string_t operationName(const Operation& operation) {
    return operation.controller + _XPLATSTR("->") + operation.name;
}

/// The type to use out of those an operation lists; empty when it lists none that the client knows.
string_t chooseType(const std::vector<string_t>& types) {
    for (const auto* known : {media::kJson, media::kMultipart})
        if (std::find(types.begin(), types.end(), known) != types.end())
            return known;
    return {};
}

string_t substitute(string_t path, const ApiClient::Texts& values) {
    for (const auto& [name, value] : values) {
        const string_t placeholder = _XPLATSTR("{") + name + _XPLATSTR("}");
        const string_t encoded = web::uri::encode_data_string(value);
        for (auto at = path.find(placeholder); at != string_t::npos; at = path.find(placeholder, at + encoded.size()))
            path.replace(at, placeholder.size(), encoded);
    }
    return path;
}

std::shared_ptr<model::IHttpBody> makeBody(const string_t& type, const string_t& name, const model::ModelBase& body) {
    if (type == media::kJson)
        return std::make_shared<model::JsonBody>(body.toJson());
    auto multipart = std::make_shared<model::MultipartFormData>();
    body.toMultipart(multipart, name);
    return multipart;
}

[[noreturn]] void failWithAnswer(const http_response& response, const string_t& message,
                                 const pplx::task<std::string>& body) {
    std::shared_ptr<std::istream> content;
    try {
        content = std::make_shared<std::istringstream>(body.get());
    } catch (const std::exception&) {
        content = nullptr;  // the status says more than the body's own failure
    }
    throw ApiException(response.status_code(), message, std::move(content));
}

/// The answer's JSON text if the answer is one of the operation's; `url` is what was asked for.
pplx::task<string_t> checkResponse(const http_response& response, const string_t& error, const string_t& url,
                                   const string_t& responseType) {
    if (response.status_code() >= 400) {
        const string_t message = error + response.reason_phrase();
        return response.extract_utf8string(true).then(
            [=](const pplx::task<std::string>& body) -> string_t { failWithAnswer(response, message, body); });
    }
    if (response.status_code() == web::http::status_codes::Found)
        throw ApiException(302, _XPLATSTR("302 error"));

    const auto contentType = response.headers().find(web::http::header_names::content_type);
    if (contentType != response.headers().end()) {
        const string_t& type = contentType->second;
        // Only the login page is HTML: the session has expired.
        if (type.find(_XPLATSTR("text/html")) != string_t::npos)
            throw ApiException(302, url);
        if (type.find(responseType) == string_t::npos)
            throw ApiException(500, error + _XPLATSTR("unexpected response type: ") + type);
    }
    if (responseType != media::kJson)
        throw ApiException(500, error + _XPLATSTR("unsupported response type"));
    return response.extract_string(true);  // JSON is UTF-8, whatever the header calls it
}

}  // namespace

Arguments& Arguments::body(const string_t& name, std::shared_ptr<const model::ModelBase> value) {
    m_bodyName = name;
    m_body = std::move(value);
    return *this;
}

pplx::task<utility::string_t> ControllerApi::send(const Operation& operation, const Arguments& arguments) const {
    const bool takesBody = !arguments.m_bodyName.empty();
    if (takesBody && !arguments.m_body)
        throw ApiException(400, _XPLATSTR("Missing required parameter '") + arguments.m_bodyName +
                                    _XPLATSTR("' when calling ") + operationName(operation));

    const string_t responseType = chooseType(operation.produces);
    if (responseType.empty())
        throw ApiException(400, operationName(operation) + _XPLATSTR(" does not produce any supported media type"));
    const string_t requestType = chooseType(operation.consumes);
    if (requestType.empty())
        throw ApiException(415, operationName(operation) + _XPLATSTR(" does not consume any supported media type"));

    const auto body = takesBody ? makeBody(requestType, arguments.m_bodyName, *arguments.m_body) : nullptr;
    const string_t path = substitute(operation.path, arguments.m_path);
    const string_t error = _XPLATSTR("error calling ") + operation.name + _XPLATSTR(": ");
    const string_t url = m_apiClient->getConfiguration()->getBaseUrl() + path;

    return m_apiClient
        ->callApi(path, operation.method, arguments.m_query, body, {{web::http::header_names::accept, responseType}},
                  {}, {}, requestType)
        .then([=](const http_response& response) { return checkResponse(response, error, url, responseType); });
}

}  // namespace io::swagger::client::api
