#include "plugin/entry/DisclosureMgrCmd.h"
#include "plugin/service/CDisclosureManageMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basecore/PlugIn.h"

// The two functions by which the host loads the plug-in; it owns what they append.

PLUGIN_EXPORT void GetCommands(BASECORE::PLUGIN::CommandList& commands) {
    commands.push_back(std::make_unique<DISCLOSUREPACKAGE::CDisclosureMgrCmd>().release());
}

PLUGIN_EXPORT void GetManagers(BASECORE::PLUGIN::ManagerList& managers) {
    managers.push_back(
        std::make_unique<DISCLOSUREPACKAGE::CDisclosureManageMgr>(BASECORE::NAMES::kDisclosure).release());
}
