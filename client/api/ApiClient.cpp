#include "client/api/ApiClient.h"

#include <atomic>
#include <boost/asio/steady_timer.hpp>
#include <cerrno>
#include <cpprest/http_client.h>
#include <pplx/threadpool.h>

#include "client/api/ApiException.h"
#include "client/model/ModelBase.h"
#include "client/model/MultipartFormData.h"

// The configuration's part that needs the client library stands here as well, so that its header is compiled once.
namespace io::swagger::client::api {
namespace {

using web::http::http_request;

// The library looks for silence piece by piece: a slow line has to get a piece through, not the whole answer.
constexpr std::size_t kPiece = 4096;

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
        if (file) {
            const auto part = std::make_shared<model::HttpContent>(*file);
            part->setName(name);
            multipart.add(part);
        }
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

/// The library looks the host's name up as it stands, and no name has the brackets of an IPv6 address.
utility::string_t connectable(utility::string_t url) {
#ifndef _WIN32
    const auto open = url.find(_XPLATSTR("//["));
    const auto close = url.find(']', open);
    if (open != utility::string_t::npos && close != utility::string_t::npos) {
        url.erase(close, 1);
        url.erase(open + 2, 1);
    }
#endif
    return url;
}

/// A request that is ended when it has not gone out within its limit.
class Connecting : public std::enable_shared_from_this<Connecting> {
public:
    explicit Connecting(const pplx::cancellation_token& calls)
        : m_end(pplx::cancellation_token_source::create_linked_source(const_cast<pplx::cancellation_token&>(calls))),
          m_timer(crossplat::threadpool::shared_instance().service()) {}

    pplx::task<web::http::http_response> send(web::http::client::http_client& client, http_request& request,
                                              std::chrono::milliseconds limit) {
        if (limit.count() > 0) {
            m_timer.expires_after(limit);
            m_timer.async_wait([self = shared_from_this()](const boost::system::error_code& error) {
                if (!error && !self->m_isOut.exchange(true)) {
                    self->m_isLate = true;
                    self->m_end.cancel();
                }
            });
            // The library tells of the first progress when the request is out.
            request.set_progress_handler([self = shared_from_this()](auto, auto) { self->goneOut(); });
        }
        return client.request(request, m_end.get_token())
            .then([self = shared_from_this()](const pplx::task<web::http::http_response>& answer) {
                self->goneOut();
                try {
                    return answer.get();
                } catch (const std::exception&) {
                    if (self->m_isLate)
                        throw web::http::http_exception(ETIMEDOUT, std::generic_category());
                    throw;
                }
            });
    }

private:
    void goneOut() {
        if (!m_isOut.exchange(true))
            m_timer.cancel();
    }

    pplx::cancellation_token_source m_end;
    boost::asio::steady_timer m_timer;
    std::atomic<bool> m_isOut = false;
    std::atomic<bool> m_isLate = false;
};

}  // namespace

ApiConfiguration::ApiConfiguration() : m_httpConfig(std::make_shared<HttpConfig>()) {}

void ApiConfiguration::setBaseUrl(const utility::string_t& baseUrl) {
    m_baseUrl = baseUrl;
    while (!m_baseUrl.empty() && m_baseUrl.back() == '/')
        m_baseUrl.pop_back();
}

void ApiConfiguration::setLimits(std::chrono::milliseconds connect, std::chrono::milliseconds silence) {
    m_connectLimit = connect;
    HttpConfig config = *m_httpConfig;
    config.set_timeout(silence);
    setHttpConfig(config);
}

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
    httpConfig.set_chunksize(kPiece);
    web::http::client::http_client client(connectable(m_configuration->getBaseUrl()), httpConfig);

    http_request request(method);
    const web::uri base(m_configuration->getBaseUrl());
    request.headers().add(
        web::http::header_names::host,
        base.is_port_default() ? base.host() : base.host() + _XPLATSTR(":") + parameterToString(base.port()));
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
    return std::make_shared<Connecting>(m_configuration->getCancellation())
        ->send(client, request, m_configuration->getConnectLimit());
}

}  // namespace io::swagger::client::api
