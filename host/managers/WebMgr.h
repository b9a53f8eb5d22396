#pragma once

#include "host/platform/SessionKeeper.h"
#include "sdk/basecore/IWebMgr.h"
#include "sdk/basecore/MgrObject.h"

namespace workbench {

/// Tells where the one service is and who is logged in.
class CWebMgr final : public BASECORE::FRAME::CMgrObject, public BASECORE::WEB::IWebMgr {
public:
    explicit CWebMgr(const SessionKeeper& keeper);

    std::wstring GetServiceAddress(const std::wstring& serviceKey) const override;
    const BASECORE::WEB::IWebSession* GetCurrentSession() const override;

private:
    const SessionKeeper& m_keeper;
};

}  // namespace workbench
