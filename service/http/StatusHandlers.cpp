#include "service/http/StatusHandlers.h"

#include <spdlog/spdlog.h>

#include "service/http/OpenApi.h"

namespace disclosure {

namespace http = boost::beast::http;

Response alive(Call&) {
    return done();
}

Response ready(Call& call) {
    bool current = false;
    try {
        current = call.store->isCurrent();
    } catch (const std::exception& e) {
        spdlog::error("not ready: {}", logTextOf(e));
    }
    if (!current)
        throw HttpError(http::status::service_unavailable, "数据库不可用或尚未升级");
    return done();
}

Response description(Call&) {
    return answerWith(http::status::ok, "application/yaml; charset=utf-8", std::string(openApiText()));
}

}  // namespace disclosure
