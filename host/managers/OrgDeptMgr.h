#pragma once

#include "host/platform/Cached.h"
#include "host/platform/PlatformData.h"
#include "sdk/basecore/MgrObject.h"

namespace workbench {

/// The service's departments and people, read once per project.
class COrgDeptMgr final : public BASECORE::FRAME::CMgrObject, public BASEPACKAGE::IOrgDeptMgr {
public:
    explicit COrgDeptMgr(PlatformData& data);

    bool GetDeptName(std::wstring& name, const std::wstring& deptId) const override;
    bool GetDepartments(std::vector<BASEPACKAGE::DeptRecord>& departments, const std::wstring& deptId) const override;
    bool GetUsers(std::vector<BASEPACKAGE::UserRecord>& users, const std::wstring& deptId) const override;

    void forget();

private:
    PlatformData& m_data;
    mutable Cached<std::vector<BASEPACKAGE::DeptRecord>> m_departments;
    mutable Cached<std::vector<BASEPACKAGE::UserRecord>> m_users;
};

}  // namespace workbench
