#pragma once

#include <string>
#include <vector>

#include "sdk/Export.h"

namespace BASEPACKAGE {

/// A department of the organisation.
struct DeptRecord {
    std::wstring id;
    std::wstring name;
    std::wstring parentId;  // empty for the organisation itself
};

/// A person of a department.
struct UserRecord {
    std::wstring userName;  // login name
    std::wstring realName;  // display name
    std::wstring headUuid;  // file key of the portrait; may be empty
    std::wstring deptId;
};

/// Departments and people. Registered as "KpxOrgDeptMgr".
class HOSTSDK_API IOrgDeptMgr {
public:
    /// False and an untouched `name` when the department is unknown.
    virtual bool GetDeptName(std::wstring& name, const std::wstring& deptId) const = 0;
    /// The department and everything below it, parents first. False when the organisation cannot be read.
    virtual bool GetDepartments(std::vector<DeptRecord>& departments, const std::wstring& deptId) const = 0;
    /// The people of the department and of everything below it. False when the organisation cannot be read.
    virtual bool GetUsers(std::vector<UserRecord>& users, const std::wstring& deptId) const = 0;

protected:
    ~IOrgDeptMgr() = default;
};

}  // namespace BASEPACKAGE
