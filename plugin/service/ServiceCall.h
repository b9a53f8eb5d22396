#pragma once

#include <cerrno>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <string>

#include "client/api/ApiException.h"
#include "sdk/basetools/TextConversion.h"
#include "sdk/baseui/Waiting.h"

namespace io::swagger::client::api {
class ApiClient;
}

/// How every operation of the manager calls the service.
namespace DISCLOSUREPACKAGE {

inline utility::string_t ToService(const std::wstring& text) {
    return BASETOOLS::FromWide<utility::string_t>(text);
}
inline std::wstring FromService(const utility::string_t& text) {
    return BASETOOLS::ToWide(text);
}

/// Keeps why a call failed as `LastFailure`, and notes it in the function log: once for each kind of failure until a
/// call succeeds. No text of the failure itself is kept, since it may hold what is nobody's business.
void NoteFailure(const std::exception_ptr& failure) noexcept;

/// What `operation` returns, or `fallback` when it throws, whatever it throws; that is then noted.
template <class Result, class Operation>
Result Quietly(Result fallback, Operation operation) noexcept {
    try {
        return operation();
    } catch (...) {
        NoteFailure(std::current_exception());
        return fallback;
    }
}

/// Tells the host of every `code` but 200; true when it was such a one. The text is `msg`, or that of `success` where
/// `msg` is empty.
bool ReportServiceError(int32_t code, const utility::string_t& msg, bool success);

/// Asks the host to renew the session if `failure` says that it has expired; true when the call may be repeated.
bool RecoverSession(const io::swagger::client::api::ApiException& failure);

/// Runs `attempt` on the service's client. When the session has expired and the host has renewed it, the result is that
/// of `repeat`. Every failure is false and leaves its reason as `LastFailure`; nothing is thrown.
bool CallService(const std::function<bool(std::shared_ptr<io::swagger::client::api::ApiClient>)>& attempt,
                 const std::function<bool()>& repeat) noexcept;

/// Waits until the call has ended, well or badly; false when the user has given up before.
template <class Answer>
bool WaitFor(const pplx::task<std::shared_ptr<Answer>>& call, bool canCancel) {
    const auto end = std::make_shared<std::promise<void>>();
    call.then([end](const pplx::task<std::shared_ptr<Answer>>& ended) {
        try {
            ended.wait();
        } catch (...) {
            end->set_value();  // looked at: the library ends the program over a failure that nobody has seen
            return;
        }
        end->set_value();
    });
    return BASEUI::Wait(end->get_future(), {.canCancel = canCancel});
}

/// Waits for the answer to a change, whose result nobody looks at; null when there is none or the service refused,
/// which the host has then been told. An answer without a code has the code 0.
template <class Answer>
std::shared_ptr<Answer> Await(const pplx::task<std::shared_ptr<Answer>>& call) {
    WaitFor(call, false);
    auto answer = call.get();
    if (!answer || ReportServiceError(answer->getCode(), answer->getMsg(), answer->getSuccess()))
        return nullptr;
    return answer;
}

/// The same for what is only read, by `api`: the user may give it up, and a result of another form is a failure.
template <class Api, class Answer>
std::shared_ptr<Answer> AwaitRead(const Api& api, const pplx::task<std::shared_ptr<Answer>>& call) {
    if (!WaitFor(call, true)) {
        api.cancelCalls();
        throw web::http::http_exception(ECANCELED, std::generic_category());
    }
    auto answer = Await(call);
    if (answer)
        answer->checkResult();
    return answer;
}

}  // namespace DISCLOSUREPACKAGE
