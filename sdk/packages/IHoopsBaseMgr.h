#pragma once

#include <string>

#include <QtGlobal>

#include "sdk/packages/IViewPortMgr.h"

class QPoint;

namespace HOOPSPACKAGE {

/// One 3D view on a native window. Owned by the manager that created it.
class HOSTSDK_API IHoopsOperator {
public:
    /// False leaves the previous model in view.
    virtual bool OpenViewPort(const ViewPortRecord& viewPort) = 0;
    /// Loads a local model file; false leaves the previous model in view.
    virtual bool LoadFile(const std::wstring& path) = 0;
    /// The model's component-tree flag: which of the trees describes the loaded model.
    virtual bool HasComponentTree() const = 0;
    virtual void Redraw() = 0;
    /// `globalPos` in logical pixels of the screen.
    virtual void MouseMoved(const QPoint& globalPos) = 0;
    virtual void WheelTurned(short delta, const QPoint& globalPos) = 0;
    /// A message of the window system as Qt's native event filter gets it.
    virtual void NativeMessage(void* message) = 0;

protected:
    ~IHoopsOperator() = default;
};

/// Creates and releases 3D views. Registered as "AppHoopsBaseMgr".
class HOSTSDK_API IHoopsBaseMgr {
public:
    /// Registering a type twice does nothing.
    virtual void RegisterOperatorType(const std::wstring& typeName) = 0;
    /// A view on the native window `window`, found again by `instanceName`; null for an unknown type, a name that is
    /// taken or a window that cannot be drawn on.
    virtual IHoopsOperator* CreateOperator(const std::wstring& typeName, const std::wstring& instanceName,
                                           quintptr window) = 0;
    /// Null when there is none of that name.
    virtual IHoopsOperator* FindOperator(const std::wstring& instanceName) const = 0;
    /// Releasing a view that does not exist does nothing.
    virtual void ReleaseOperator(const std::wstring& instanceName) = 0;

protected:
    ~IHoopsBaseMgr() = default;
};

}  // namespace HOOPSPACKAGE
