#pragma once

#include "host/platform/Cached.h"
#include "host/platform/PlatformData.h"
#include "sdk/basecore/MgrObject.h"

namespace workbench {

/// The service's projects.
class CProjectDataMgr final : public BASECORE::FRAME::CMgrObject, public PROJECTPACKAGE::IProjectDataMgr {
public:
    explicit CProjectDataMgr(PlatformData& data);

    bool GetProjects(std::vector<PROJECTPACKAGE::ProjectRecord>& projects) override;
    bool GetProjectName(std::wstring& name, int32_t ppid) override;

    void forget() { m_projects.forget(); }

private:
    PlatformData& m_data;
    Cached<std::vector<PROJECTPACKAGE::ProjectRecord>> m_projects;
};

}  // namespace workbench
