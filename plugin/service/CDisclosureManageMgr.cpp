#include "plugin/service/CDisclosureManageMgr.h"

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/IKpxCurProjectMgr.h"

namespace DISCLOSUREPACKAGE {
namespace {

constexpr int kObserverOrder = 5;

PROJECTPACKAGE::IKpxCurProjectMgr* CurrentProject(const BASECORE::FRAME::IBaseCoreData* core) {
    return BASECORE::FRAME::LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(BASECORE::NAMES::kCurrentProject, core);
}

}  // namespace

CDisclosureManageMgr::CDisclosureManageMgr(const std::wstring& name) : CMgrObject(name) {}
CDisclosureManageMgr::~CDisclosureManageMgr() = default;

void CDisclosureManageMgr::Init() {}

void CDisclosureManageMgr::Startup() {
    if (auto* project = CurrentProject(GetBaseCoreData()))
        project->AddProjLoadObserver(this, kObserverOrder);
}

void CDisclosureManageMgr::Shutdown() {
    if (auto* project = CurrentProject(GetBaseCoreData()))
        project->RemoveProjLoadObserver(this);
}

void CDisclosureManageMgr::OnProjectLoaded(PROJECTPACKAGE::IProject*) {}
void CDisclosureManageMgr::OnProjectSaved(PROJECTPACKAGE::IProject*) {}
void CDisclosureManageMgr::OnProjectClosed(PROJECTPACKAGE::IProject*) {}
bool CDisclosureManageMgr::CanLoadProject(PROJECTPACKAGE::IProject*) {
    return true;
}
bool CDisclosureManageMgr::CanCloseProject(PROJECTPACKAGE::IProject*) {
    return true;
}

}  // namespace DISCLOSUREPACKAGE
