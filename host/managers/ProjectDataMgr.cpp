#include "host/managers/ProjectDataMgr.h"

#include <algorithm>

#include "sdk/basecore/ManagerNames.h"

namespace workbench {

using PROJECTPACKAGE::ProjectRecord;

CProjectDataMgr::CProjectDataMgr(PlatformData& data) : CMgrObject(BASECORE::NAMES::kProjectData), m_data(data) {}

bool CProjectDataMgr::GetProjects(std::vector<ProjectRecord>& projects) {
    const auto* cached = m_projects.get({}, [this] { return m_data.projects(); });
    if (cached)
        projects = *cached;
    return cached;
}

bool CProjectDataMgr::GetProjectName(std::wstring& name, int32_t ppid) {
    std::vector<ProjectRecord> projects;
    GetProjects(projects);
    const auto found =
        std::find_if(projects.begin(), projects.end(), [ppid](const ProjectRecord& p) { return p.ppid == ppid; });
    if (found == projects.end())
        return false;
    name = found->projName;
    return true;
}

}  // namespace workbench
