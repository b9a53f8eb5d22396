#include "host/managers/WebMgr.h"

#include "sdk/basecore/ManagerNames.h"

namespace workbench {

CWebMgr::CWebMgr(const SessionKeeper& keeper) : CMgrObject(BASECORE::NAMES::kWebService), m_keeper(keeper) {}

std::wstring CWebMgr::GetServiceAddress(const std::wstring& serviceKey) const {
    return serviceKey == BASECORE::NAMES::kServiceKey ? m_keeper.address().toStdWString() : std::wstring();
}

const BASECORE::WEB::IWebSession* CWebMgr::GetCurrentSession() const {
    return m_keeper.session();
}

}  // namespace workbench
