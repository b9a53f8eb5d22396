#include "sdk/basetools/FileNameCheck.h"

namespace BASETOOLS {

bool CFileNameCheck::HasForbiddenCharacter(const std::wstring& name) {
    return name.find_first_of(L"\\/:*?\"<>|") != std::wstring::npos;
}

}  // namespace BASETOOLS
