#pragma once

#include <string>

#include "sdk/Export.h"
#include "sdk/packages/HoopsTree.h"

namespace PROJECTPACKAGE {

/// Told when the display control of a view changes.
class HOSTSDK_API IDisplayControlObserver {
public:
    /// `kind` is the tree that changed in the view of the operator of that name.
    virtual void OnDisplayControlChanged(const std::wstring& operatorName, HOOPSPACKAGE::HoopsTreeKind kind) = 0;

protected:
    ~IDisplayControlObserver() = default;
};

/// Passes on changes of the display control. Registered as "KpxDisplayControlUIMgr".
class HOSTSDK_API IDisplayControlUIMgr {
public:
    /// The observer is borrowed until it is removed.
    virtual void AddDisplayControlObserver(IDisplayControlObserver* observer) = 0;
    /// Removing an observer that was never added does nothing.
    virtual void RemoveDisplayControlObserver(IDisplayControlObserver* observer) = 0;

protected:
    ~IDisplayControlUIMgr() = default;
};

}  // namespace PROJECTPACKAGE
