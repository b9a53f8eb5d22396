#include "plugin/service/CDisclosureManageMgr.h"
#include "plugin/service/ServiceCall.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/IFunctionLogMgr.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/IOrgDeptMgr.h"

// The operations that only ask the host.
namespace DISCLOSUREPACKAGE {

using BASECORE::FRAME::LookupManager;

void CDisclosureManageMgr::SetParentWidget(QWidget* parent) {
    m_parentWidget = parent;
}

QWidget* CDisclosureManageMgr::GetParentWidget() {
    return m_parentWidget;
}

std::wstring CDisclosureManageMgr::GetCurDeptId() {
    return Quietly(std::wstring(), [] {
        const auto* project = LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject);
        return project ? project->GetCurDeptId() : std::wstring();
    });
}

std::wstring CDisclosureManageMgr::GetCurDeptName() {
    return Quietly(std::wstring(), [] {
        std::wstring name;
        const auto* project = LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject);
        const auto* departments = LookupManager<BASEPACKAGE::IOrgDeptMgr>(BASECORE::NAMES::kDepartments);
        if (project && departments)
            departments->GetDeptName(name, project->GetCurDeptId());
        return name;
    });
}

int CDisclosureManageMgr::WriteFunctionLog(const std::wstring& title, const std::wstring& path) {
    constexpr int kNotLogged = 1;
    return Quietly(kNotLogged, [&] {
        auto* log = LookupManager<PROJECTPACKAGE::IFunctionLogMgr>(BASECORE::NAMES::kFunctionLog);
        auto* logger = log ? log->GetLogger() : nullptr;
        return logger ? logger->Write(title, path) : kNotLogged;
    });
}

}  // namespace DISCLOSUREPACKAGE
