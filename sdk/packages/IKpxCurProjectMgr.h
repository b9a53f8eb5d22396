#pragma once

#include "sdk/packages/IKpxProjLoadObserver.h"

namespace PROJECTPACKAGE {

/// The project that is open. Registered as "KpxCurProjectMgr".
class HOSTSDK_API IKpxCurProjectMgr {
public:
    virtual ~IKpxCurProjectMgr();
    /// Observers are told in ascending `order`; the observer is borrowed until it is removed.
    virtual void AddProjLoadObserver(IKpxProjLoadObserver* observer, int order) = 0;
    /// Removing an observer that was never added does nothing.
    virtual void RemoveProjLoadObserver(IKpxProjLoadObserver* observer) = 0;
    /// The department of the current project; empty when none is open.
    virtual std::wstring GetCurDeptId() const = 0;
    /// Null when none is open. Owned by the host, valid until the project changes.
    virtual IProject* GetCurProject() const = 0;
};

}  // namespace PROJECTPACKAGE
