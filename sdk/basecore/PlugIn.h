#pragma once

#include <vector>

#include "sdk/basecore/ICmdObject.h"
#include "sdk/basecore/IMgrObject.h"

/// What a plug-in library exports, with C linkage. The host owns every object that is appended.
namespace BASECORE::PLUGIN {

using CommandList = std::vector<CMD::ICmdObject*>;
using ManagerList = std::vector<FRAME::IMgrObject*>;

using GetCommandsFunction = void (*)(CommandList&);
using GetManagersFunction = void (*)(ManagerList&);

inline constexpr char kGetCommands[] = "GetCommands";
inline constexpr char kGetManagers[] = "GetManagers";

}  // namespace BASECORE::PLUGIN

#if defined(_WIN32)
#define PLUGIN_EXPORT extern "C" __declspec(dllexport)
#else
#define PLUGIN_EXPORT extern "C" __attribute__((visibility("default")))
#endif
