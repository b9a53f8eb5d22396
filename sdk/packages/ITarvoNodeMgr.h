#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sdk/Export.h"

namespace MODELPACKAGE {

/// A rebar node of a project's model.
struct TarvoNodeRecord {
    std::wstring id;
    std::wstring name;
    std::wstring fileKey;        // of its model file
    std::wstring thumbnailUuid;  // file key of its picture; may be empty
};

/// The rebar nodes of projects. Registered as "APP_TARVONODE_MGR".
class HOSTSDK_API ITarvoNodeMgr {
public:
    static constexpr wchar_t kAllFloors[] = L"全部楼层";

    /// The nodes of one floor, or of `kAllFloors`. False when they cannot be read.
    virtual bool GetNodes(std::vector<TarvoNodeRecord>& nodes, int32_t ppid, const std::wstring& floor) = 0;

protected:
    ~ITarvoNodeMgr() = default;
};

}  // namespace MODELPACKAGE
