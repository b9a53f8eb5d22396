#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASEPACKAGE {

/// Told when the service stops or begins to answer.
class HOSTSDK_API IServiceStateObserver {
public:
    /// Comes on the UI thread from the event loop, never while somebody's call waits.
    virtual void OnServiceStateChanged(bool reachable) = 0;

protected:
    ~IServiceStateObserver() = default;
};

/// Knows whether the service answers. Registered as "APP_SERVICESTATE_MGR"; a host may lack it.
class HOSTSDK_API IServiceStateMgr {
public:
    /// True until a request or the host's own look at the service has failed.
    virtual bool IsReachable() const = 0;
    /// Why the service is not reachable, for the user; empty while it is.
    virtual std::wstring GetReason() const = 0;
    /// The observer is borrowed until it is removed; adding it again does nothing. It is told of changes only.
    virtual void AddObserver(IServiceStateObserver* observer) = 0;
    /// Removing an observer that was never added does nothing; it is not told any more, also of what is under way.
    virtual void RemoveObserver(IServiceStateObserver* observer) = 0;

protected:
    ~IServiceStateMgr() = default;
};

}  // namespace BASEPACKAGE
