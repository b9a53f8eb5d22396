#pragma once

#include <string>
#include <vector>

#include "sdk/Export.h"
#include "sdk/packages/HoopsTree.h"

namespace HOOPSPACKAGE {

/// Shows and hides parts of the model in a view. Registered as "AppHoopsCtrlMgr".
class HOSTSDK_API IHoopsCtrlMgr {
public:
    /// The top rows of the tree; false when no such view exists or nothing is loaded in it.
    virtual bool GetTree(std::vector<HoopsTreeNode>& nodes, const std::wstring& operatorName,
                         HoopsTreeKind kind) const = 0;
    /// Shows or hides the part `nodeId` with everything below it.
    virtual bool SetShown(const std::wstring& operatorName, HoopsTreeKind kind, const std::wstring& nodeId,
                          bool shown) = 0;

protected:
    ~IHoopsCtrlMgr() = default;
};

}  // namespace HOOPSPACKAGE
