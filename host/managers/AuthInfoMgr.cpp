#include "host/managers/AuthInfoMgr.h"

#include <algorithm>

#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/AuthCodeTool.h"

namespace workbench {

CAuthInfoMgr::CAuthInfoMgr(PlatformData& data, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject)
    : CMgrObject(BASECORE::NAMES::kRights), m_data(data), m_currentProject(currentProject) {}

bool CAuthInfoMgr::HasAuth(int authCode) const {
    const std::wstring key = BASETOOLS::CAuthCodeTool::GetAuthKey(authCode);
    const std::wstring deptId = m_currentProject.GetCurDeptId();
    if (key.empty() || deptId.empty())
        return false;
    const auto* rights = m_rights.get(deptId, [&] { return m_data.rights(deptId); });
    return rights && std::find(rights->begin(), rights->end(), key) != rights->end();
}

}  // namespace workbench
