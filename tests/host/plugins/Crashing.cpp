#include <cstdlib>

#include "sdk/basecore/PlugIn.h"

// A plug-in that takes the process down while it is being loaded.
PLUGIN_EXPORT void GetManagers(BASECORE::PLUGIN::ManagerList&) {
    std::abort();
}

PLUGIN_EXPORT void GetCommands(BASECORE::PLUGIN::CommandList&) {}
