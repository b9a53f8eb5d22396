#pragma once

#include <chrono>
#include <functional>

#include <QCoreApplication>

#include "host/platform/SessionKeeper.h"
#include "sdk/basecore/IRestServWebMgr.h"
#include "sdk/basecore/MgrObject.h"

namespace workbench {

/// Shows what the service refused, and renews the session: with the words of the last login, or by asking the user.
class CRestServWebMgr final : public BASECORE::FRAME::CMgrObject, public BASECORE::IRestServWebMgr {
    Q_DECLARE_TR_FUNCTIONS(CRestServWebMgr)

public:
    /// Lets the user log in again and shows why that is needed; true when a new session stands.
    using LoginPrompt = std::function<bool(const QString& reason)>;

    /// A session that is refused within `refusedAgain` of its renewal is not renewed once more. The time is longer than
    /// any call lasts, so that a repeat which is refused late ends as well.
    CRestServWebMgr(SessionKeeper& keeper, LoginPrompt prompt,
                    std::chrono::steady_clock::duration refusedAgain = std::chrono::minutes(1));

    bool HasSession(const std::wstring& serviceKey) const override;
    bool RenewSession(const std::wstring& serviceKey, const std::wstring& message) override;
    void EndSession(const std::wstring& serviceKey) override;
    void ReportStatus(int code, const std::wstring& text) override;

private:
    bool renew();
    /// Once every call has returned, so that nothing re-enters one from within the box.
    static void showLater(const QString& text);

    SessionKeeper& m_keeper;
    LoginPrompt m_prompt;
    std::chrono::steady_clock::duration m_refusedAgain;
    std::string m_freshSession;
    std::string m_toldOf;  // the session of which the user has heard that it was refused again
    std::chrono::steady_clock::time_point m_renewedAt;
    bool m_isRenewing = false;
};

}  // namespace workbench
