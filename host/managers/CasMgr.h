#pragma once

#include "host/platform/SessionKeeper.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/ICasMgr.h"

namespace workbench {

/// Tells who is logged in.
class CCasMgr final : public BASECORE::FRAME::CMgrObject, public BASEPACKAGE::ICasMgr {
public:
    explicit CCasMgr(const SessionKeeper& keeper);

    std::wstring GetUserName() const override { return m_keeper.user().userName; }
    std::wstring GetRealName() const override { return m_keeper.user().realName; }

private:
    const SessionKeeper& m_keeper;
};

}  // namespace workbench
