#pragma once

#include "host/platform/DocumentStore.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/IProjectDataMgr.h"
#include "sdk/packages/documents/IKpxDocFolderMgr.h"

namespace workbench {

/// The service's folders below the top, which is there without the service.
class CDocFolderMgr final : public BASECORE::FRAME::CMgrObject, public DOCUMENTPACKAGE::IKpxDocFolderMgr {
    Q_DECLARE_TR_FUNCTIONS(CDocFolderMgr)

public:
    CDocFolderMgr(DocumentStore& store, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                  PROJECTPACKAGE::IProjectDataMgr& projects);

    bool GetFolders(std::vector<DOCUMENTPACKAGE::DocFolderRecord>& folders, int32_t ppid) override;

    static QString topName() { return tr("全部资料"); }

private:
    /// Of the project; empty when there is no such project.
    std::wstring departmentOf(int32_t ppid) const;

    DocumentStore& m_store;
    const PROJECTPACKAGE::IKpxCurProjectMgr& m_currentProject;
    PROJECTPACKAGE::IProjectDataMgr& m_projects;
};

}  // namespace workbench
