#include "host/managers/OrgDeptMgr.h"

#include <algorithm>

#include "sdk/basecore/ManagerNames.h"

namespace workbench {

using BASEPACKAGE::DeptRecord;

COrgDeptMgr::COrgDeptMgr(PlatformData& data) : CMgrObject(BASECORE::NAMES::kDepartments), m_data(data) {}

bool COrgDeptMgr::GetDeptName(std::wstring& name, const std::wstring& deptId) const {
    std::vector<DeptRecord> departments;
    if (!GetDepartments(departments, deptId))
        return false;
    const auto found = std::find_if(departments.begin(), departments.end(),
                                    [&](const DeptRecord& department) { return department.id == deptId; });
    if (found == departments.end())
        return false;
    name = found->name;
    return true;
}

bool COrgDeptMgr::GetDepartments(std::vector<DeptRecord>& departments, const std::wstring& deptId) const {
    const auto* cached = m_departments.get(deptId, [&] { return m_data.departments(deptId); });
    if (cached)
        departments = *cached;
    return cached;
}

bool COrgDeptMgr::GetUsers(std::vector<BASEPACKAGE::UserRecord>& users, const std::wstring& deptId) const {
    const auto* cached = m_users.get(deptId, [&] { return m_data.users(deptId); });
    if (cached)
        users = *cached;
    return cached;
}

void COrgDeptMgr::forget() {
    m_departments.forget();
    m_users.forget();
}

}  // namespace workbench
