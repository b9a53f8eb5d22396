#pragma once

#include "host/platform/Cached.h"
#include "host/platform/PlatformData.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IAuthInfoMgr.h"
#include "sdk/packages/IKpxCurProjectMgr.h"

namespace workbench {

/// The current user's rights in the current project's department, read once per project. Rights that cannot be read are
/// not held.
class CAuthInfoMgr final : public BASECORE::FRAME::CMgrObject, public BASEPACKAGE::IAuthInfoMgr {
public:
    CAuthInfoMgr(PlatformData& data, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject);

    bool HasAuth(int authCode) const override;

    void forget() { m_rights.forget(); }

private:
    PlatformData& m_data;
    const PROJECTPACKAGE::IKpxCurProjectMgr& m_currentProject;
    mutable Cached<std::vector<std::wstring>> m_rights;
};

}  // namespace workbench
