#pragma once

#include <memory>
#include <string>

#include "host/platform/PlatformClient.h"
#include "sdk/basecore/IWebMgr.h"
#include "sdk/packages/IOrgDeptMgr.h"

namespace workbench {

/// The session of one login; it holds the cookie of the address it was made at.
class WebSession final : public BASECORE::WEB::IWebSession, private BASECORE::WEB::ICookieHolder {
public:
    WebSession(std::wstring address, std::string id) : m_address(std::move(address)), m_id(std::move(id)) {}

    const BASECORE::WEB::ICookieHolder* GetCookieHolder(const std::wstring& address) const override {
        return address == m_address ? this : nullptr;
    }
    const std::string& id() const { return m_id; }

private:
    std::string GetEntry(const std::string& entry) const override { return entry == "VALUE" ? m_id : std::string(); }

    std::wstring m_address;
    std::string m_id;
};

/// Logs in and out, and keeps the session and, in memory only, what is needed to log in again.
class SessionKeeper {
public:
    explicit SessionKeeper(PlatformClient& client) : m_client(client) {}

    /// A refused login leaves the present session and user as they are.
    Answer logIn(const QString& address, const QString& userName, const QString& password);
    /// With the words of the last login that succeeded.
    Answer logInAgain();
    /// Asks the service whether it accepts the present session.
    bool isAccepted();
    void logOut();

    const QString& address() const { return m_client.address(); }
    /// Null when nobody is logged in; replaced by every login.
    const WebSession* session() const { return m_session.get(); }
    /// Empty when nobody is logged in.
    const BASEPACKAGE::UserRecord& user() const { return m_user; }

private:
    PlatformClient& m_client;
    std::unique_ptr<WebSession> m_session;
    BASEPACKAGE::UserRecord m_user;
    QString m_userName;
    QString m_password;
};

}  // namespace workbench
