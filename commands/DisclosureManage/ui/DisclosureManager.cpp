#include "commands/DisclosureManage/ui/DisclosureManager.h"

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

DISCLOSUREPACKAGE::IDisclosureManageMgr* FindDisclosureManager() {
    return BASECORE::FRAME::LookupManager<DISCLOSUREPACKAGE::IDisclosureManageMgr>(BASECORE::NAMES::kDisclosure);
}
