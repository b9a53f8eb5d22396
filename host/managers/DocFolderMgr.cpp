#include "host/managers/DocFolderMgr.h"

#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/disclosure/LastFailure.h"

namespace workbench {

CDocFolderMgr::CDocFolderMgr(DocumentStore& store, const PROJECTPACKAGE::IKpxCurProjectMgr& currentProject,
                             PROJECTPACKAGE::IProjectDataMgr& projects)
    : CMgrObject(BASECORE::NAMES::kDocumentFolders),
      m_store(store),
      m_currentProject(currentProject),
      m_projects(projects) {}

std::wstring CDocFolderMgr::departmentOf(int32_t ppid) const {
    const PROJECTPACKAGE::IProject* current = m_currentProject.GetCurProject();
    if (current && current->GetId() == ppid)
        return current->GetDeptId();
    std::vector<PROJECTPACKAGE::ProjectRecord> projects;
    m_projects.GetProjects(projects);
    for (const PROJECTPACKAGE::ProjectRecord& project : projects)
        if (project.ppid == ppid)
            return project.deptId;
    return {};
}

bool CDocFolderMgr::GetFolders(std::vector<DOCUMENTPACKAGE::DocFolderRecord>& folders, int32_t ppid) {
    const std::wstring deptId = departmentOf(ppid);
    QString why = tr("工程不存在");
    const auto known = deptId.empty() ? std::nullopt : m_store.folders(why, deptId);
    if (!known) {
        DISCLOSUREPACKAGE::SetLastFailure(why.toStdWString());
        return false;
    }
    folders = {{DOCUMENTPACKAGE::kTopFolder, {}, topName().toStdWString()}};
    for (const DocumentFolder& folder : *known)
        folders.push_back({folder.id.toStdWString(), folder.parentId.toStdWString(), folder.name.toStdWString()});
    return true;
}

}  // namespace workbench
