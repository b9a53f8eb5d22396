#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASECORE::WEB {

/// The cookie of one service address.
class HOSTSDK_API ICookieHolder {
public:
    /// The text stored under `entry`; empty when there is none. The session id stands under "VALUE".
    virtual std::string GetEntry(const std::string& entry) const = 0;

protected:
    ~ICookieHolder() = default;
};

/// What the user's login left behind.
class HOSTSDK_API IWebSession {
public:
    /// Null when the session has no cookie for `address`. Owned by the session.
    virtual const ICookieHolder* GetCookieHolder(const std::wstring& address) const = 0;

protected:
    ~IWebSession() = default;
};

/// Knows where services are and who is logged in. Registered as "AppWebServiceMgr".
class HOSTSDK_API IWebMgr {
public:
    /// "host:port" of the service known under `serviceKey`; empty when unknown.
    virtual std::wstring GetServiceAddress(const std::wstring& serviceKey) const = 0;
    /// Null when nobody is logged in. Valid until the session changes.
    virtual const IWebSession* GetCurrentSession() const = 0;

protected:
    ~IWebMgr() = default;
};

}  // namespace BASECORE::WEB
