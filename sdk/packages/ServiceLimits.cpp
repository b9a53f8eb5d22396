#include "sdk/packages/ServiceLimits.h"

#include <cwchar>
#include <string>

#include "sdk/packages/IKpxClientConfigMgr.h"

namespace PROJECTPACKAGE {
namespace {

void Read(const IKpxClientConfigMgr& config, const wchar_t* key, std::chrono::seconds& limit) {
    constexpr long kLongest = 3600;
    const std::wstring text = config.GetValue(key);
    wchar_t* end = nullptr;
    const long seconds = std::wcstol(text.c_str(), &end, 10);
    if (*end == 0 && seconds > 0 && seconds <= kLongest)
        limit = std::chrono::seconds(seconds);
}

}  // namespace

ServiceLimits ReadServiceLimits(const IKpxClientConfigMgr* config) {
    ServiceLimits limits;
    if (config) {
        Read(*config, kConnectSeconds, limits.connect);
        Read(*config, kSilenceSeconds, limits.silence);
    }
    return limits;
}

}  // namespace PROJECTPACKAGE
