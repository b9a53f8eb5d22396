#include <gtest/gtest.h>

#include "sdk/basecore/CmdObject.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/IMgrObject.h"
#include "sdk/basecore/IRestServWebMgr.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/IKpxFileUploadMgr.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "tests/support/Slots.h"

namespace {

using support::expectSlotsFrom;
using support::slotOf;

TEST(Slots, HostManagersOfferTheirOperationsWherePlugInsLookForThem) {
    using namespace BASECORE;
    EXPECT_EQ(slotOf(&FRAME::IBaseCoreData::LookupManager), 1U);
    EXPECT_EQ(slotOf(&IRestServWebMgr::RenewSession), 1U);
    EXPECT_EQ(slotOf(&IRestServWebMgr::ReportStatus), 3U);
    EXPECT_EQ(slotOf(&BASEPACKAGE::IKpxFileUploadMgr::Upload), 1U);
    expectSlotsFrom(1, &FRAME::IMgrObject::GetName, &FRAME::IMgrObject::Init, &FRAME::IMgrObject::Startup,
                    &FRAME::IMgrObject::Shutdown);
}

TEST(Slots, ProjectObserversAreAddedAndToldInOrder) {
    using namespace PROJECTPACKAGE;
    expectSlotsFrom(1, &IKpxCurProjectMgr::AddProjLoadObserver, &IKpxCurProjectMgr::RemoveProjLoadObserver);
    expectSlotsFrom(1, &IKpxProjLoadObserver::OnProjectLoaded, &IKpxProjLoadObserver::OnProjectSaved,
                    &IKpxProjLoadObserver::OnProjectClosed, &IKpxProjLoadObserver::CanLoadProject,
                    &IKpxProjLoadObserver::CanCloseProject);
}

TEST(Slots, ACommandHasThirtyTwo) {
    using C = BASECORE::CMD::ICmdObject;
    expectSlotsFrom(1, &C::SetGroupCmd, &C::SetParam, &C::GetParam, &C::GetName, &C::GetGroup, &C::GetStatus,
                    &C::IsEnable, &C::IsCheck, &C::Execute, &C::Stop, &C::ViewModelTypeRegistration,
                    &C::ViewRegistration, &C::GetFault, &C::SetBaseCoreData);
    expectSlotsFrom(15, &C::OnLButtonDown, &C::OnLButtonUp, &C::OnLButtonDblClk, &C::OnRButtonDown, &C::OnRButtonUp,
                    &C::OnRButtonDblClk, &C::OnMButtonDown, &C::OnMButtonUp, &C::OnMButtonDblClk, &C::OnMouseMove,
                    &C::OnMouseWheel, &C::OnKeyDown, &C::OnKeyUp, &C::PreTranslateMessage, &C::OnSetCursor);
    using P = BASECORE::CMD::CPushMsgCmdObj;
    expectSlotsFrom(30, &P::RunCommand, &P::FinishCommand);
    EXPECT_EQ(slotOf(&P::GetGroup), 5U);
}

TEST(Slots, TheDisclosureManagerHasTwentyThree) {
    using M = DISCLOSUREPACKAGE::IDisclosureManageMgr;
    expectSlotsFrom(0, &M::SaveCatalog, &M::ListCatalogs, &M::DeleteCatalog, &M::MoveCatalog, &M::UpdateCatalog,
                    &M::SetParentWidget, &M::GetParentWidget, &M::SaveTask, &M::UpdateTask, &M::MoveTaskToCatalog,
                    &M::BatchDeleteTasks, &M::PageTasks, &M::QueryPushConfig, &M::SavePushConfig, &M::UpdatePushConfig,
                    &M::ExportTasksToExcel, &M::WriteFunctionLog, &M::GetLinkThumbnail, &M::FindCachedTask,
                    &M::GetCurDeptId, &M::UploadLocalFiles, &M::GetCurDeptName, &M::QueryTaskById);
}

}  // namespace
