#pragma once

#include <cpprest/json.h>

#include "client/model/IHttpBody.h"

namespace io::swagger::client::model {

/// A body of one JSON value.
class JsonBody : public IHttpBody {
public:
    explicit JsonBody(web::json::value value) : m_value(std::move(value)) {}
    void writeTo(web::http::http_request& request) override;

private:
    web::json::value m_value;
};

}  // namespace io::swagger::client::model
