#include "plugin/service/ServiceClientProvider.h"

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/IWebMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/TextConversion.h"
#include "sdk/packages/IKpxClientConfigMgr.h"
#include "sdk/packages/ServiceLimits.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::api;
using BASECORE::FRAME::LookupManager;
using BASETOOLS::FromWide;

ServiceClientProvider& ServiceClientProvider::Instance() {
    static auto* const instance = new ServiceClientProvider;
    return *instance;
}

std::shared_ptr<ApiClient> ServiceClientProvider::GetClient() {
    const auto* web = LookupManager<BASECORE::WEB::IWebMgr>(BASECORE::NAMES::kWebService);
    const auto* session = web ? web->GetCurrentSession() : nullptr;
    if (!session)
        return m_client;

    const std::wstring address = web->GetServiceAddress(BASECORE::NAMES::kServiceKey);
    const auto* cookie = session->GetCookieHolder(address);
    const std::wstring sessionId = cookie ? BASETOOLS::AnsiToUnicode(cookie->GetEntry("VALUE")) : std::wstring();

    m_configuration = std::make_shared<ApiConfiguration>();
    m_configuration->setBaseUrl(
        FromWide<utility::string_t>(L"http://" + address.substr(0, address.find_last_not_of(L'/') + 1) + L"/rs"));
    const auto limits = PROJECTPACKAGE::ReadServiceLimits(
        LookupManager<PROJECTPACKAGE::IKpxClientConfigMgr>(BASECORE::NAMES::kClientConfig));
    m_configuration->setLimits(limits.connect, limits.silence);
    m_configuration->getDefaultHeaders()[_XPLATSTR("Cookie")] = FromWide<utility::string_t>(L"JSESSIONID=" + sessionId);
    m_client = std::make_shared<ApiClient>(m_configuration);
    return m_client;
}

}  // namespace DISCLOSUREPACKAGE
