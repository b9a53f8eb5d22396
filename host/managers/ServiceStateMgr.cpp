#include "host/managers/ServiceStateMgr.h"

#include <algorithm>

#include "host/log/Guarded.h"
#include "sdk/basecore/ManagerNames.h"

namespace workbench {

using BASEPACKAGE::IServiceStateObserver;

CServiceStateMgr::CServiceStateMgr() : CMgrObject(BASECORE::NAMES::kServiceState) {
    m_later.setSingleShot(true);
    QObject::connect(&m_later, &QTimer::timeout, &m_later, [this] { tell(); });
}

void CServiceStateMgr::AddObserver(IServiceStateObserver* observer) {
    if (observer && std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end())
        m_observers.push_back(observer);
}

void CServiceStateMgr::RemoveObserver(IServiceStateObserver* observer) {
    m_observers.erase(std::remove(m_observers.begin(), m_observers.end(), observer), m_observers.end());
}

void CServiceStateMgr::note(bool reachable, const QString& text) {
    m_isReachable = reachable;
    m_reason = reachable ? std::wstring() : text.toStdWString();
    if (m_isReachable != m_told)
        m_later.start(0);
}

void CServiceStateMgr::tell() {
    if (m_isReachable == m_told)
        return;
    m_told = m_isReachable;
    for (auto* observer : std::vector(m_observers))
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end())
            guarded("OnServiceStateChanged", [&] { observer->OnServiceStateChanged(m_told); });
}

}  // namespace workbench
