#pragma once

#include <chrono>
#include <cpprest/details/basic_types.h>
#include <map>
#include <memory>
#include <pplx/pplx.h>

namespace web::http::client {
class http_client_config;
}

namespace io::swagger::client::api {

/// Where the service is and what every request carries.
class ApiConfiguration {
public:
    using Texts = std::map<utility::string_t, utility::string_t>;
    using HttpConfig = web::http::client::http_client_config;

    ApiConfiguration();

    const utility::string_t& getBaseUrl() const { return m_baseUrl; }
    /// A slash at its end is dropped, because every path begins with one.
    void setBaseUrl(const utility::string_t& baseUrl);

    /// Sent with every request; callers write into it.
    Texts& getDefaultHeaders() { return m_defaultHeaders; }
    void setDefaultHeaders(const Texts& headers) { m_defaultHeaders = headers; }

    /// Empty for an unknown name.
    utility::string_t getApiKey(const utility::string_t& name) const;
    void setApiKey(const utility::string_t& name, const utility::string_t& value) { m_apiKeys[name] = value; }

    const HttpConfig& getHttpConfig() const { return *m_httpConfig; }
    void setHttpConfig(const HttpConfig& config);

    /// Empty leaves the header to the HTTP library.
    const utility::string_t& getUserAgent() const { return m_userAgent; }
    void setUserAgent(const utility::string_t& userAgent) { m_userAgent = userAgent; }

    /// A call fails as timed out when its request has not gone out within `connect`, and when nothing at all moves for
    /// `silence`, which belongs to the HTTP client's configuration; the whole may take any time. A `connect` of 0
    /// leaves the first to the second.
    void setLimits(std::chrono::milliseconds connect, std::chrono::milliseconds silence);
    std::chrono::milliseconds getConnectLimit() const { return m_connectLimit; }

    /// Gives up every call made under this configuration or a copy of it, now and later; they fail as cancelled.
    void cancelCalls() { m_calls.cancel(); }
    pplx::cancellation_token getCancellation() const { return m_calls.get_token(); }

private:
    utility::string_t m_baseUrl;
    Texts m_defaultHeaders;
    Texts m_apiKeys;
    std::shared_ptr<const HttpConfig> m_httpConfig;  // behind a pointer: its header costs seconds to compile
    utility::string_t m_userAgent;
    std::chrono::milliseconds m_connectLimit{0};
    pplx::cancellation_token_source m_calls;
};

}  // namespace io::swagger::client::api
