#include "sdk/basecore/MgrObject.h"
#include "sdk/basecore/PlugIn.h"

// A plug-in one of whose managers has a name that is taken already.
PLUGIN_EXPORT void GetManagers(BASECORE::PLUGIN::ManagerList& managers) {
    managers.push_back(new BASECORE::FRAME::CMgrObject(L"GOOD_1"));
    managers.push_back(new BASECORE::FRAME::CMgrObject(L"DUPLICATE_1"));
}

PLUGIN_EXPORT void GetCommands(BASECORE::PLUGIN::CommandList&) {}
