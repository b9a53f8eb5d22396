#include <stdexcept>

#include "sdk/basecore/MgrObject.h"
#include "sdk/basecore/PlugIn.h"

// A plug-in that fails after it has handed out its first manager.
PLUGIN_EXPORT void GetManagers(BASECORE::PLUGIN::ManagerList& managers) {
    managers.push_back(new BASECORE::FRAME::CMgrObject(L"THROWING_1"));
    throw std::runtime_error("no second manager");
}

PLUGIN_EXPORT void GetCommands(BASECORE::PLUGIN::CommandList&) {}
