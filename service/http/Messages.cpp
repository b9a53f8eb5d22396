#include "service/http/Messages.h"

#include <spdlog/spdlog.h>

#include "service/files/FileFolder.h"
#include "service/ports/IStore.h"

namespace disclosure {

namespace http = boost::beast::http;

namespace {

std::string errorBody(int code, const std::string& msg, const Refusal::Numbers& numbers = {}) {
    JsonBuffer buffer;
    JsonWriter writer(buffer);
    writer.StartObject();
    write(writer, "code", code);
    write(writer, "success", false);
    write(writer, "msg", msg);
    writer.Key("result");
    if (numbers.empty()) {
        writer.Null();
    } else {
        writer.StartObject();
        for (const auto& [key, number] : numbers)
            write(writer, key.c_str(), number);
        writer.EndObject();
    }
    writer.EndObject();
    return {buffer.GetString(), buffer.GetSize()};
}

}  // namespace

Response answerWith(http::status status, const char* contentType, std::string body) {
    Response response(status, 11);
    if (!body.empty())
        response.set(http::field::content_type, contentType);
    response.set(http::field::cache_control, "no-store");
    response.set("X-Content-Type-Options", "nosniff");
    response.body() = std::move(body);
    return response;
}

Response answerTo(const HttpError& error) {
    Response response = answerWith(error.status(), JsonType,
                                   error.msg().empty() ? "" : errorBody(static_cast<int>(error.status()), error.msg()));
    if (!error.header().empty())
        response.set(error.header(), error.value());
    return response;
}

Response answerTo(const Refusal& refusal) {
    return answerWith(http::status::ok, JsonType, errorBody(refusal.code(), refusal.msg(), refusal.numbers()));
}

Response answerToFailure(std::string_view what) noexcept {
    try {
        throw;
    } catch (const HttpError& error) {
        return answerTo(error);
    } catch (const Refusal& refusal) {
        return answerTo(refusal);
    } catch (const std::exception& error) {
        if (isConflict(error)) {
            spdlog::warn("{}: {}", what, logTextOf(error));
            return answerBusy();
        }
        spdlog::error("{}: {}", what, logTextOf(error));
        if (dynamic_cast<const DiskFull*>(&error) || isDatabaseFull(error))
            return answerTo(HttpError(http::status::insufficient_storage, "服务器存储空间不足"));
        return answerTo(HttpError(http::status::internal_server_error, "服务内部错误，请稍后重试"));
    }
}

Response answerBusy() {
    return answerTo(HttpError(http::status::service_unavailable, "服务繁忙，请稍后重试", "Retry-After", "1"));
}

}  // namespace disclosure
