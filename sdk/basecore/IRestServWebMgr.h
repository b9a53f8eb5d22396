#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASECORE {

/// Shows a service's errors and keeps the session alive. Registered as "APP_RESTSERV_MGR".
class HOSTSDK_API IRestServWebMgr {
public:
    /// Whether somebody is logged in to the service known under `serviceKey`. Asks nothing of the service.
    virtual bool HasSession(const std::wstring& serviceKey) const = 0;
    /// Logs in again; true when a fresh session stands and the call may be repeated. False when the fresh session is
    /// refused again, so that repeating ends. `message` tells what the refused call was answered.
    virtual bool RenewSession(const std::wstring& serviceKey, const std::wstring& message) = 0;
    /// Ends the session at the service known under `serviceKey`.
    virtual void EndSession(const std::wstring& serviceKey) = 0;
    /// Shows the user that the service answered `code` with `text`.
    virtual void ReportStatus(int code, const std::wstring& text) = 0;

protected:
    ~IRestServWebMgr() = default;
};

}  // namespace BASECORE
