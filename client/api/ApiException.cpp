#include "client/api/ApiException.h"

namespace io::swagger::client::api {

ApiException::ApiException(int code, const utility::string_t& message, std::shared_ptr<std::istream> content)
    : ApiException(code, message, Headers(), std::move(content)) {}

ApiException::ApiException(int code, const utility::string_t& message, Headers headers,
                           std::shared_ptr<std::istream> content)
    : http_exception(code, message), m_content(std::move(content)), m_headers(std::move(headers)) {}

}  // namespace io::swagger::client::api
