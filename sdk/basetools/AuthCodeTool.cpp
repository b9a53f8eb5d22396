#include "sdk/basetools/AuthCodeTool.h"

namespace BASETOOLS {
namespace {

struct AuthCode {
    int code;
    const wchar_t* key;
};

constexpr AuthCode kTable[] = {
    {310201, CAuthCodeTool::kEditCatalogs},
    {310202, CAuthCodeTool::kEditTasks},
    {310203, CAuthCodeTool::kDeleteTasks},
};

}  // namespace

int CAuthCodeTool::GetAuthCode(const std::wstring& key) {
    for (const AuthCode& entry : kTable)
        if (key == entry.key)
            return entry.code;
    return kUnknown;
}

std::wstring CAuthCodeTool::GetAuthKey(int code) {
    for (const AuthCode& entry : kTable)
        if (code == entry.code)
            return entry.key;
    return {};
}

}  // namespace BASETOOLS
