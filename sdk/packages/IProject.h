#pragma once

#include <cstdint>
#include <string>

#include "sdk/Export.h"

namespace PROJECTPACKAGE {

/// One project of the host.
class HOSTSDK_API IProject {
public:
    /// The project's number, `ppid` in records that link to it.
    virtual int32_t GetId() const = 0;
    virtual std::wstring GetName() const = 0;
    /// The department that owns the project.
    virtual std::wstring GetDeptId() const = 0;

protected:
    ~IProject() = default;
};

}  // namespace PROJECTPACKAGE
