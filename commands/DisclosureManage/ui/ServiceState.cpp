#include "commands/DisclosureManage/ui/ServiceState.h"

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "ui/common/WideText.h"

namespace {

BASEPACKAGE::IServiceStateMgr* host() {
    return BASECORE::FRAME::LookupManager<BASEPACKAGE::IServiceStateMgr>(BASECORE::NAMES::kServiceState);
}

}  // namespace

ServiceState::ServiceState(QObject* parent) : QObject(parent) {
    look();
    if (auto* states = host())
        states->AddObserver(this);
}

ServiceState::~ServiceState() {
    if (auto* states = host())
        states->RemoveObserver(this);
}

void ServiceState::OnServiceStateChanged(bool reachable) {
    look();
    emit changed();
    if (reachable)
        emit back();
}

void ServiceState::look() {
    const auto* states = host();
    m_isLost = states && !states->IsReachable();
    m_reason = m_isLost ? FromWide(states->GetReason()) : QString();
}
