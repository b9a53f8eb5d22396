#include "plugin/service/ServiceClientProvider.h"

#include <chrono>
#include <cwchar>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/IWebMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/TextConversion.h"
#include "sdk/packages/IKpxClientConfigMgr.h"

namespace DISCLOSUREPACKAGE {

using namespace io::swagger::client::api;
using BASETOOLS::FromWide;

namespace {

constexpr std::chrono::seconds kConnectLimit{5};
constexpr std::chrono::seconds kSilenceLimit{30};

/// The time that the user's settings have under `key`; `usual` where it is none or out of range.
std::chrono::seconds Seconds(const wchar_t* key, std::chrono::seconds usual) {
    constexpr int kLongest = 3600;
    const auto* config =
        BASECORE::FRAME::LookupManager<PROJECTPACKAGE::IKpxClientConfigMgr>(BASECORE::NAMES::kClientConfig);
    const std::wstring text = config ? config->GetValue(key) : std::wstring();
    wchar_t* end = nullptr;
    const long seconds = std::wcstol(text.c_str(), &end, 10);
    const bool good = !text.empty() && *end == 0 && seconds > 0 && seconds <= kLongest;
    return good ? std::chrono::seconds(seconds) : usual;
}

}  // namespace

ServiceClientProvider& ServiceClientProvider::Instance() {
    static auto* const instance = new ServiceClientProvider;
    return *instance;
}

std::shared_ptr<ApiClient> ServiceClientProvider::GetClient() {
    const auto* web = BASECORE::FRAME::LookupManager<BASECORE::WEB::IWebMgr>(BASECORE::NAMES::kWebService);
    const auto* session = web ? web->GetCurrentSession() : nullptr;
    if (!session)
        return m_client;

    const std::wstring address = web->GetServiceAddress(BASECORE::NAMES::kServiceKey);
    const auto* cookie = session->GetCookieHolder(address);
    const std::wstring sessionId = cookie ? BASETOOLS::AnsiToUnicode(cookie->GetEntry("VALUE")) : std::wstring();

    m_configuration = std::make_shared<ApiConfiguration>();
    m_configuration->setBaseUrl(FromWide<utility::string_t>(L"http://" + address + L"/rs"));
    m_configuration->setLimits(Seconds(PROJECTPACKAGE::kConnectSeconds, kConnectLimit),
                               Seconds(PROJECTPACKAGE::kSilenceSeconds, kSilenceLimit));
    m_configuration->getDefaultHeaders()[_XPLATSTR("Cookie")] = FromWide<utility::string_t>(L"JSESSIONID=" + sessionId);
    m_client = std::make_shared<ApiClient>(m_configuration);
    return m_client;
}

}  // namespace DISCLOSUREPACKAGE
