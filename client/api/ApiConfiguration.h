#pragma once

#include <cpprest/details/basic_types.h>
#include <map>
#include <memory>

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
    void setBaseUrl(const utility::string_t& baseUrl) { m_baseUrl = baseUrl; }

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

private:
    utility::string_t m_baseUrl;
    Texts m_defaultHeaders;
    Texts m_apiKeys;
    std::shared_ptr<const HttpConfig> m_httpConfig;  // behind a pointer: its header costs seconds to compile
    utility::string_t m_userAgent;
};

}  // namespace io::swagger::client::api
