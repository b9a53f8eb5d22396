#include "plugin/service/ServiceCall.h"

#include "plugin/service/ServiceClientProvider.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/IRestServWebMgr.h"
#include "sdk/basecore/ManagerNames.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::api;

namespace {

BASECORE::IRestServWebMgr* RestService() {
    return BASECORE::FRAME::LookupManager<BASECORE::IRestServWebMgr>(BASECORE::NAMES::kRestService);
}

}  // namespace

bool ReportServiceError(int32_t code, const utility::string_t& msg, bool success) {
    if (code == 200)
        return false;
    if (auto* host = RestService())
        host->ReportStatus(code, FromService(msg.empty() ? ApiClient::parameterToString(success) : msg));
    return true;
}

bool RecoverSession(const ApiException& failure) {
    if (failure.error_code().value() != 302)
        return false;
    auto* host = RestService();
    return host && host->RenewSession(BASECORE::NAMES::kServiceKey, BASETOOLS::AnsiToUnicode(failure.what()));
}

bool CallService(const std::function<bool(std::shared_ptr<ApiClient>)>& attempt,
                 const std::function<bool()>& repeat) noexcept {
    return Quietly(false, [&] {
        try {
            const auto client = ServiceClientProvider::Instance().GetClient();
            return client && attempt(client);
        } catch (const ApiException& failure) {
            return RecoverSession(failure) && repeat();
        }
    });
}

}  // namespace DISCLOSUREPACKAGE
