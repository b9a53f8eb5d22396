#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASETOOLS {

/// The auth-code table: from a right's key to the code by which `BASEPACKAGE::IAuthInfoMgr` is asked.
class HOSTSDK_API CAuthCodeTool {
public:
    static constexpr wchar_t kEditCatalogs[] = L"AUTH_JIAODIGUANLI_EDITMULU";
    static constexpr wchar_t kEditTasks[] = L"AUTH_JIAODIGUANLI_EDITOTHER";
    static constexpr wchar_t kDeleteTasks[] = L"AUTH_JIAODIGUANLI_DELETEOTHER";
    static constexpr int kUnknown = -1;

    /// `kUnknown` for a key that is not in the table.
    static int GetAuthCode(const std::wstring& key);
    /// Empty for a code that is not in the table.
    static std::wstring GetAuthKey(int code);
};

}  // namespace BASETOOLS
