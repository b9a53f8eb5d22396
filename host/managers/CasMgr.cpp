#include "host/managers/CasMgr.h"

#include "sdk/basecore/ManagerNames.h"

namespace workbench {

CCasMgr::CCasMgr(const SessionKeeper& keeper) : CMgrObject(BASECORE::NAMES::kAuthentication), m_keeper(keeper) {}

}  // namespace workbench
