#include "client/api/ApiClient.h"

#include <cpprest/http_client.h>

#include "client/api/ApiException.h"
#include "client/model/ModelBase.h"
#include "client/model/MultipartFormData.h"

// The configuration's part that needs the client library stands here as well, so that its header is compiled once.
namespace io::swagger::client::api {
namespace {

using web::http::http_request;

void checkArguments(bool hasBody, bool hasForm, bool hasFiles, const utility::string_t& contentType) {
    if (hasBody && hasForm)
        throw ApiException(400, _XPLATSTR("Cannot have body and form params"));
    if (hasBody && hasFiles)
        throw ApiException(400, _XPLATSTR("Cannot have body and file params"));
    if (hasFiles && contentType != media::kMultipart)
        throw ApiException(400, _XPLATSTR("Operations with file parameters must be called with multipart/form-data"));
}

void writeMultipart(http_request& request, const ApiClient::Texts& formParams, const ApiClient::Files& fileParams) {
    model::MultipartFormData multipart;
    for (const auto& [name, value] : formParams)
        multipart.add(model::ModelBase::toHttpContent(name, value));
    for (const auto& [name, file] : fileParams)
        if (file)
            multipart.add(file);
    multipart.writeTo(request);
}

void writeUrlEncoded(http_request& request, const ApiClient::Texts& formParams) {
    web::uri_builder form;
    for (const auto& [name, value] : formParams)
        form.append_query(name, value);
    // The UTF-16 overload is the one that names the charset on every platform.
    request.set_body(utility::conversions::to_utf16string(form.query()),
                     utility::conversions::to_utf16string(media::kForm));
}

void writeJson(http_request& request, const ApiClient::Texts& formParams) {
    // The library refuses a GET with a body on Windows, and an empty object says nothing.
    if (formParams.empty() && request.method() == web::http::methods::GET)
        return;
    web::json::value body = web::json::value::object(true);
    for (const auto& [name, value] : formParams)
        body[name] = model::ModelBase::toJson(value);
    request.set_body(body);
}

}  // namespace

ApiConfiguration::ApiConfiguration() : m_httpConfig(std::make_shared<HttpConfig>()) {}

utility::string_t ApiConfiguration::getApiKey(const utility::string_t& name) const {
    const auto found = m_apiKeys.find(name);
    return found == m_apiKeys.end() ? utility::string_t() : found->second;
}

void ApiConfiguration::setHttpConfig(const HttpConfig& config) {
    m_httpConfig = std::make_shared<HttpConfig>(config);
}

ApiClient::ApiClient(std::shared_ptr<ApiConfiguration> configuration) : m_configuration(std::move(configuration)) {}

utility::string_t ApiClient::parameterToString(int32_t value) {
    return utility::conversions::to_string_t(std::to_string(value));
}

utility::string_t ApiClient::parameterToString(int64_t value) {
    return utility::conversions::to_string_t(std::to_string(value));
}

utility::string_t ApiClient::parameterToString(bool value) {
    return value ? _XPLATSTR("true") : _XPLATSTR("false");
}

pplx::task<web::http::http_response> ApiClient::callApi(const utility::string_t& path, const web::http::method& method,
                                                        const Texts& queryParams,
                                                        const std::shared_ptr<model::IHttpBody>& postBody,
                                                        const Texts& headerParams, const Texts& formParams,
                                                        const Files& fileParams,
                                                        const utility::string_t& contentType) const {
    checkArguments(postBody != nullptr, !formParams.empty(), !fileParams.empty(), contentType);

    auto httpConfig = m_configuration->getHttpConfig();
    httpConfig.set_max_redirects(0);  // a redirect means that the session has expired, so the caller must see it
    web::http::client::http_client client(m_configuration->getBaseUrl(), httpConfig);

    http_request request(method);
    if (!m_configuration->getUserAgent().empty())
        request.headers().add(web::http::header_names::user_agent, m_configuration->getUserAgent());
    for (const auto& [name, value] : m_configuration->getDefaultHeaders())
        request.headers().add(name, value);
    for (const auto& [name, value] : headerParams)
        request.headers().add(name, value);

    if (postBody)
        postBody->writeTo(request);
    else if (contentType == media::kMultipart)
        writeMultipart(request, formParams, fileParams);
    else if (contentType == media::kForm)
        writeUrlEncoded(request, formParams);
    else
        writeJson(request, formParams);

    web::uri_builder uri(path);
    for (const auto& [name, value] : queryParams)
        uri.append_query(name, value);
    request.set_request_uri(uri.to_uri());
    return client.request(request);
}

}  // namespace io::swagger::client::api
