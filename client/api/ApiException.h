#pragma once

#include <cpprest/http_msg.h>
#include <istream>
#include <map>
#include <memory>

namespace io::swagger::client::api {

/// A call of the service that failed: an HTTP status or one of the client's own codes, a message, and what the service
/// sent along.
class ApiException : public web::http::http_exception {
public:
    using Headers = std::map<utility::string_t, utility::string_t>;

    ApiException(int code, const utility::string_t& message, std::shared_ptr<std::istream> content = nullptr);
    ApiException(int code, const utility::string_t& message, Headers headers,
                 std::shared_ptr<std::istream> content = nullptr);

    /// The answer's body; null when there was none to read.
    std::shared_ptr<std::istream> getContent() const { return m_content; }
    const Headers& getHeaders() const { return m_headers; }

private:
    std::shared_ptr<std::istream> m_content;
    Headers m_headers;
};

}  // namespace io::swagger::client::api
