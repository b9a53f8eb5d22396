#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sdk/Export.h"

namespace PROJECTPACKAGE {

/// A project as lists and trees show it.
struct ProjectRecord {
    int32_t ppid = 0;
    std::wstring projId;
    std::wstring projName;
    std::wstring deptId;
    int32_t classify = 0;   // the host's classification
    int32_t projModel = 0;  // the type of its model
    int32_t projType = 0;   // chooses its icon
};

/// The projects that the current user may see. Registered as "KpxProjectDataMgr".
class HOSTSDK_API IProjectDataMgr {
public:
    /// False when the projects cannot be read; the list then stays as it was.
    virtual bool GetProjects(std::vector<ProjectRecord>& projects) = 0;
    /// False and an untouched `name` when the project is unknown.
    virtual bool GetProjectName(std::wstring& name, int32_t ppid) = 0;

protected:
    ~IProjectDataMgr() = default;
};

}  // namespace PROJECTPACKAGE
