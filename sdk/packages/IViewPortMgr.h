#pragma once

#include <cstdint>
#include <string>

#include "sdk/Export.h"

namespace HOOPSPACKAGE {

/// The camera saved with a viewport; stored under the name and the keys below.
struct HoopsCamera {
    static constexpr wchar_t kName[] = L"HoopsCaremaInfo";  // spelled so

    double PosX = 0, PosY = 0, PosZ = 0;
    double TargetX = 0, TargetY = 0, TargetZ = 0;
    double UVctX = 0, UVctY = 0, UVctZ = 0;
    double FieldHeight = 0, FieldWidth = 0;
    std::wstring HoopsModel;  // the model it belongs to
};

/// A saved viewport, as far as it is needed to open it.
struct ViewPortRecord {
    int32_t ppid = 0;
    std::wstring id;  // its file name in the project
    std::wstring name;
    std::wstring fileKey;
    std::wstring modelId;
};

/// The saved viewports of a project. Registered as "KpxViewPortMgr".
class HOSTSDK_API IViewPortMgr {
public:
    /// The viewports as JSON text in UTF-8: an array of nodes with "filename" (empty for a group), "nodename" and
    /// "childnode" (an array of the same form). False when they cannot be read.
    virtual bool GetViewPortTree(std::string& json, int32_t ppid) = 0;
    /// The local path of the viewport's picture, in the local code page; empty when there is none.
    virtual std::string GetThumbnailPath(int32_t ppid, const std::wstring& fileName) = 0;
    /// False when the project has no such viewport.
    virtual bool GetViewPort(ViewPortRecord& viewPort, int32_t ppid, const std::wstring& id) = 0;
    /// False when no camera was saved with the viewport.
    virtual bool GetCamera(HoopsCamera& camera, const ViewPortRecord& viewPort) = 0;
    virtual bool SaveCamera(const ViewPortRecord& viewPort, const HoopsCamera& camera) = 0;

protected:
    ~IViewPortMgr() = default;
};

}  // namespace HOOPSPACKAGE
