#include "commands/DisclosureManage/ui/Rights.h"

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/packages/IAuthInfoMgr.h"

bool HoldsRight(const wchar_t* key) {
    const auto* rights = BASECORE::FRAME::LookupManager<BASEPACKAGE::IAuthInfoMgr>(BASECORE::NAMES::kRights);
    return !rights || rights->HasAuth(BASETOOLS::CAuthCodeTool::GetAuthCode(key));
}
