#pragma once

#include <vector>

#include <QTimer>

#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IServiceStateMgr.h"

namespace workbench {

/// Keeps what the workbench last heard of the service, and passes changes on from the event loop.
class CServiceStateMgr final : public BASECORE::FRAME::CMgrObject, public BASEPACKAGE::IServiceStateMgr {
public:
    CServiceStateMgr();

    bool IsReachable() const override { return m_isReachable; }
    std::wstring GetReason() const override { return m_reason; }
    void AddObserver(BASEPACKAGE::IServiceStateObserver* observer) override;
    void RemoveObserver(BASEPACKAGE::IServiceStateObserver* observer) override;

    void note(bool reachable, const QString& text);

private:
    void tell();

    bool m_isReachable = true;
    bool m_told = true;
    std::wstring m_reason;
    std::vector<BASEPACKAGE::IServiceStateObserver*> m_observers;
    QTimer m_later;  // timers stand still while a call waits
};

}  // namespace workbench
