#pragma once

#include <cpprest/http_msg.h>

namespace io::swagger::client::model {

/// The body of a request.
class IHttpBody {
public:
    virtual ~IHttpBody() = default;
    /// Sets the request's body and content type.
    virtual void writeTo(web::http::http_request& request) = 0;
};

}  // namespace io::swagger::client::model
