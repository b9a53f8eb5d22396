#pragma once

#include "host/log/EventLog.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IFunctionLogMgr.h"

namespace workbench {

/// Writes what the user does to the event log.
class CFunctionLogMgr final : public BASECORE::FRAME::CMgrObject,
                              public PROJECTPACKAGE::IFunctionLogMgr,
                              private PROJECTPACKAGE::IFunctionLogger {
public:
    explicit CFunctionLogMgr(EventLog& log);

    PROJECTPACKAGE::IFunctionLogger* GetLogger() override { return this; }

private:
    int Write(const std::wstring& title, const std::wstring& path) override;

    EventLog& m_log;
};

}  // namespace workbench
