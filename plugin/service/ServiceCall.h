#pragma once

#include <functional>
#include <memory>
#include <string>

#include "client/api/ApiException.h"
#include "sdk/basetools/TextConversion.h"

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

/// What `operation` returns, or `fallback` when it throws, whatever it throws.
template <class Result, class Operation>
Result Quietly(Result fallback, Operation operation) noexcept {
    try {
        return operation();
    } catch (...) {
        return fallback;
    }
}

/// Tells the host of every `code` but 200; true when it was such a one. The text is `msg`, or that of `success` where
/// `msg` is empty.
bool ReportServiceError(int32_t code, const utility::string_t& msg, bool success);

/// Asks the host to renew the session if `failure` says that it has expired; true when the call may be repeated.
bool RecoverSession(const io::swagger::client::api::ApiException& failure);

/// Runs `attempt` on the service's client. When the session has expired and the host has renewed it, the result is that
/// of `repeat`. Every failure is false; nothing is thrown.
bool CallService(const std::function<bool(std::shared_ptr<io::swagger::client::api::ApiClient>)>& attempt,
                 const std::function<bool()>& repeat) noexcept;

/// Waits for an answer; null when there is none or the service refused, which the host has then been told. An answer
/// without a code has the code 0.
template <class Answer>
std::shared_ptr<Answer> Await(const pplx::task<std::shared_ptr<Answer>>& call) {
    auto answer = call.get();
    if (!answer || ReportServiceError(answer->getCode(), answer->getMsg(), answer->getSuccess()))
        return nullptr;
    return answer;
}

}  // namespace DISCLOSUREPACKAGE
