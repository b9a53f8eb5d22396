#pragma once

#include <cpprest/http_msg.h>
#include <map>
#include <memory>

#include "client/api/ApiConfiguration.h"
#include "client/model/HttpContent.h"
#include "client/model/IHttpBody.h"

namespace io::swagger::client::api {

namespace media {
inline constexpr utility::char_t kJson[] = _XPLATSTR("application/json");
inline constexpr utility::char_t kMultipart[] = _XPLATSTR("multipart/form-data");
inline constexpr utility::char_t kForm[] = _XPLATSTR("application/x-www-form-urlencoded");
}  // namespace media

/// Sends requests to the service that its configuration names.
class ApiClient {
public:
    using Texts = ApiConfiguration::Texts;
    using Files = std::map<utility::string_t, std::shared_ptr<model::HttpContent>>;

    explicit ApiClient(std::shared_ptr<ApiConfiguration> configuration);

    std::shared_ptr<ApiConfiguration> getConfiguration() const { return m_configuration; }
    void setConfiguration(std::shared_ptr<ApiConfiguration> configuration) {
        m_configuration = std::move(configuration);
    }

    static utility::string_t parameterToString(const utility::string_t& value) { return value; }
    static utility::string_t parameterToString(const utility::char_t* value) = delete;  // would be taken for a bool
    static utility::string_t parameterToString(int32_t value);
    static utility::string_t parameterToString(int64_t value);
    static utility::string_t parameterToString(bool value);

    /// Sends one request and follows no redirect. `path` is below the base URL, its parameters already in it; without a
    /// `postBody` the form and file parameters make the body, null files left out. Throws `ApiException` on
    /// contradicting arguments; the library's own exceptions come from the task or, for an unusable base URL, from
    /// here.
    pplx::task<web::http::http_response> callApi(const utility::string_t& path, const web::http::method& method,
                                                 const Texts& queryParams,
                                                 const std::shared_ptr<model::IHttpBody>& postBody,
                                                 const Texts& headerParams, const Texts& formParams,
                                                 const Files& fileParams, const utility::string_t& contentType) const;

private:
    std::shared_ptr<ApiConfiguration> m_configuration;
};

}  // namespace io::swagger::client::api
