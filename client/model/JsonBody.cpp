#include "client/model/JsonBody.h"

namespace io::swagger::client::model {

void JsonBody::writeTo(web::http::http_request& request) {
    request.set_body(m_value);  // sets "application/json"
}

}  // namespace io::swagger::client::model
