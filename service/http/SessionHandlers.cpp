#include "service/http/SessionHandlers.h"

#include <spdlog/spdlog.h>

#include "service/http/PersonJson.h"

namespace disclosure {

namespace http = boost::beast::http;

namespace {

std::string cookie(const Call& call, const std::string& value) {
    return "JSESSIONID=" + value + "; HttpOnly; SameSite=Strict; Path=/rs" + (call.secureCookie ? "; Secure" : "");
}

[[noreturn]] void throttled(std::int64_t wait) {
    constexpr std::int64_t Minute = 60;
    const std::int64_t seconds = (wait + 999) / 1000;
    const std::string text =
        seconds < Minute ? std::to_string(seconds) + "秒" : std::to_string((seconds + Minute - 1) / Minute) + "分钟";
    throw HttpError(http::status::too_many_requests, "登录失败次数过多，请" + text + "后再试", "Retry-After",
                    std::to_string(seconds));
}

}  // namespace

Response login(Call& call) {
    const auto attempt =
        call.accounts.login(*call.store, textOf(call.body, "username"), textOf(call.body, "password"), call.client);
    switch (attempt.outcome) {
        case Accounts::Outcome::Wrong:
            spdlog::info("log-in refused, from {}", call.client);
            throw HttpError(http::status::unauthorized, "用户名或密码错误");
        case Accounts::Outcome::Throttled:
            spdlog::warn("log-in throttled, from {}", call.client);
            throttled(attempt.wait);
        case Accounts::Outcome::Accepted:
            break;
    }
    Response response = success([&](JsonWriter& writer) { writePerson(writer, attempt.person); });
    response.set(http::field::set_cookie, cookie(call, attempt.sessionId));
    return response;
}

Response logout(Call& call) {
    call.accounts.logout(*call.store, call.sessionId);
    Response response = done();
    response.set(http::field::set_cookie, cookie(call, "") + "; Max-Age=0");
    return response;
}

}  // namespace disclosure
