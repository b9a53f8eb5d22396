#include "plugin/service/ServiceCall.h"

#include <cpprest/json.h>
#include <set>

#include "plugin/service/ServiceClientProvider.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/IRestServWebMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/IFunctionLogMgr.h"
#include "sdk/packages/disclosure/LastFailure.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::api;

namespace {

constexpr wchar_t kCancelled[] = L"已取消";
constexpr wchar_t kMalformed[] = L"无法识别服务的应答";
constexpr wchar_t kNoSession[] = L"尚未登录";

/// The kinds of failure noted since the last success.
std::set<std::wstring>& Noted() {
    static std::set<std::wstring> kinds;
    return kinds;
}

std::wstring KindOf(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const ApiException& refused) {
        const int code = refused.error_code().value();
        return code == 302 ? L"登录已失效" : L"服务返回错误 " + std::to_wstring(code);
    } catch (const web::http::http_exception& broken) {
        if (broken.error_code() == std::errc::operation_canceled)
            return kCancelled;
        return broken.error_code() == std::errc::timed_out ? L"服务没有按时应答" : L"与服务的连接失败";
    } catch (const web::json::json_exception&) {
        return kMalformed;
    } catch (...) {
        return L"程序内部错误";
    }
}

BASECORE::IRestServWebMgr* RestService() {
    return BASECORE::FRAME::LookupManager<BASECORE::IRestServWebMgr>(BASECORE::NAMES::kRestService);
}

}  // namespace

bool ReportServiceError(int32_t code, const utility::string_t& msg, bool success) {
    if (code == 200)
        return false;
    const std::wstring text = FromService(msg.empty() ? ApiClient::parameterToString(success) : msg);
    SetLastFailure(text, true);
    if (auto* host = RestService())
        host->ReportStatus(code, text);
    return true;
}

bool RecoverSession(const ApiException& failure) {
    if (failure.error_code().value() != 302)
        return false;
    auto* host = RestService();
    return host && host->RenewSession(BASECORE::NAMES::kServiceKey, BASETOOLS::AnsiToUnicode(failure.what()));
}

void NoteFailure(const std::exception_ptr& failure) noexcept {
    try {
        const std::wstring kind = KindOf(failure);
        SetLastFailure(kind);
        auto* log = BASECORE::FRAME::LookupManager<PROJECTPACKAGE::IFunctionLogMgr>(BASECORE::NAMES::kFunctionLog);
        if (auto* logger = log && Noted().insert(kind).second ? log->GetLogger() : nullptr)
            logger->Write(L"操作失败", L"技术→交底管理→" + kind);
    } catch (...) {
        return;  // what fails while a failure is noted has nobody left to be told
    }
}

bool CallService(const std::function<bool(std::shared_ptr<ApiClient>)>& attempt,
                 const std::function<bool()>& repeat) noexcept {
    return Quietly(false, [&] {
        SetLastFailure({});
        try {
            const auto client = ServiceClientProvider::Instance().GetClient();
            if (client && attempt(client)) {
                Noted().clear();
                SetLastFailure({});
                return true;
            }
            if (LastFailure().empty())
                SetLastFailure(client ? kMalformed : kNoSession);
            return false;
        } catch (const ApiException& failure) {
            if (RecoverSession(failure))
                return repeat();
            throw;
        }
    });
}

}  // namespace DISCLOSUREPACKAGE
