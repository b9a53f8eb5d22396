#include "service/http/SessionHandlers.h"

#include <spdlog/spdlog.h>

#include "service/http/PersonJson.h"

namespace disclosure {

namespace http = boost::beast::http;

Response login(Call& call) {
    const auto attempt =
        call.accounts.login(*call.store, textOf(call.body, "username"), textOf(call.body, "password"), call.address);
    switch (attempt.outcome) {
        case Accounts::Outcome::Wrong:
            spdlog::info("log-in refused, from {}", call.address);
            throw HttpError(http::status::unauthorized, "用户名或密码错误");
        case Accounts::Outcome::Throttled:
            spdlog::warn("log-in throttled, from {}", call.address);
            throw HttpError(http::status::too_many_requests, "登录失败次数过多，请稍后再试", "Retry-After", "300");
        case Accounts::Outcome::Accepted:
            break;
    }
    Response response = success([&](JsonWriter& writer) { writePerson(writer, attempt.person); });
    response.set(http::field::set_cookie, "JSESSIONID=" + attempt.sessionId + "; HttpOnly; SameSite=Strict; Path=/rs");
    return response;
}

Response logout(Call& call) {
    call.accounts.logout(*call.store, call.sessionId);
    Response response = done();
    response.set(http::field::set_cookie, "JSESSIONID=; HttpOnly; SameSite=Strict; Path=/rs; Max-Age=0");
    return response;
}

}  // namespace disclosure
