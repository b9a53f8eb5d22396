#include "host/managers/FunctionLogMgr.h"

#include "sdk/basecore/ManagerNames.h"

namespace workbench {

CFunctionLogMgr::CFunctionLogMgr(EventLog& log) : CMgrObject(BASECORE::NAMES::kFunctionLog), m_log(log) {}

int CFunctionLogMgr::Write(const std::wstring& title, const std::wstring& path) {
    return m_log.writeAction(QString::fromStdWString(title), QString::fromStdWString(path)) ? 0 : 1;
}

}  // namespace workbench
