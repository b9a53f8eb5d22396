#pragma once

#include <boost/any.hpp>
#include <string>

#include "sdk/Export.h"

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace BASECORE::FRAME {
class IBaseCoreData;
}

namespace BASECORE::CMD {

enum class CmdStatus { Idle, Running };

/// A command that the host offers to the user. Slots are in a fixed order: host and plug-in may be built apart.
class HOSTSDK_API ICmdObject {
public:
    virtual ~ICmdObject();

    /// The command that groups this one in menus; borrowed, may be null.
    virtual void SetGroupCmd(ICmdObject* group) = 0;
    virtual void SetParam(const std::wstring& key, const boost::any& value) = 0;
    /// Empty when no value was set under `key`.
    virtual boost::any GetParam(const std::wstring& key) const = 0;
    /// The registered name, unique in the host.
    virtual std::wstring GetName() const = 0;
    virtual std::wstring GetGroup() const = 0;
    virtual CmdStatus GetStatus() const = 0;
    virtual bool IsEnable() const = 0;
    virtual bool IsCheck() const = 0;
    /// Starts the command; returns false when it is disabled or already running.
    virtual bool Execute() = 0;
    virtual void Stop() = 0;
    /// Called once after loading, before the first `Execute`: registers types that QML and queued signals carry.
    virtual void ViewModelTypeRegistration() = 0;
    /// Called once after `ViewModelTypeRegistration`, for views of the command's own in the host's frame.
    virtual void ViewRegistration() = 0;
    /// Why the last run failed; empty when it did not.
    virtual std::wstring GetFault() const = 0;
    virtual void SetBaseCoreData(FRAME::IBaseCoreData* core) = 0;

    // Input in the host's main view while the command is the active one; true means handled.
    virtual bool OnLButtonDown(QMouseEvent* event) = 0;
    virtual bool OnLButtonUp(QMouseEvent* event) = 0;
    virtual bool OnLButtonDblClk(QMouseEvent* event) = 0;
    virtual bool OnRButtonDown(QMouseEvent* event) = 0;
    virtual bool OnRButtonUp(QMouseEvent* event) = 0;
    virtual bool OnRButtonDblClk(QMouseEvent* event) = 0;
    virtual bool OnMButtonDown(QMouseEvent* event) = 0;
    virtual bool OnMButtonUp(QMouseEvent* event) = 0;
    virtual bool OnMButtonDblClk(QMouseEvent* event) = 0;
    virtual bool OnMouseMove(QMouseEvent* event) = 0;
    virtual bool OnMouseWheel(QWheelEvent* event) = 0;
    virtual bool OnKeyDown(QKeyEvent* event) = 0;
    virtual bool OnKeyUp(QKeyEvent* event) = 0;
    virtual bool PreTranslateMessage(void* message) = 0;
    virtual bool OnSetCursor() = 0;
};

}  // namespace BASECORE::CMD
