#include "sdk/packages/IKpxCurProjectMgr.h"

// The destructors of the interfaces that have one. Casts across libraries compare types by name, so they work for the
// interfaces without one as well.
namespace PROJECTPACKAGE {

IKpxProjLoadObserver::~IKpxProjLoadObserver() = default;
IKpxCurProjectMgr::~IKpxCurProjectMgr() = default;

}  // namespace PROJECTPACKAGE
