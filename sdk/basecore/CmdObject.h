#pragma once

#include <map>
#include <memory>
#include <string>

#include "sdk/basecore/ICmdObject.h"

class QTimer;

namespace BASECORE::CMD {

/// Base of every command: keeps parameters and the core, is enabled, and lets all input pass.
class HOSTSDK_API CCmdObject : public ICmdObject {
public:
    CCmdObject();
    ~CCmdObject() override;
    CCmdObject(const CCmdObject&) = delete;
    CCmdObject& operator=(const CCmdObject&) = delete;

    void SetGroupCmd(ICmdObject* group) override;
    void SetParam(const std::wstring& key, const boost::any& value) override;
    boost::any GetParam(const std::wstring& key) const override;
    /// The name of the group command; empty without one.
    std::wstring GetGroup() const override;
    CmdStatus GetStatus() const override;
    bool IsEnable() const override;
    bool IsCheck() const override;
    bool Execute() override;
    void Stop() override;
    void ViewModelTypeRegistration() override;
    void ViewRegistration() override;
    std::wstring GetFault() const override;
    void SetBaseCoreData(FRAME::IBaseCoreData* core) override;

    bool OnLButtonDown(QMouseEvent* event) override;
    bool OnLButtonUp(QMouseEvent* event) override;
    bool OnLButtonDblClk(QMouseEvent* event) override;
    bool OnRButtonDown(QMouseEvent* event) override;
    bool OnRButtonUp(QMouseEvent* event) override;
    bool OnRButtonDblClk(QMouseEvent* event) override;
    bool OnMButtonDown(QMouseEvent* event) override;
    bool OnMButtonUp(QMouseEvent* event) override;
    bool OnMButtonDblClk(QMouseEvent* event) override;
    bool OnMouseMove(QMouseEvent* event) override;
    bool OnMouseWheel(QWheelEvent* event) override;
    bool OnKeyDown(QKeyEvent* event) override;
    bool OnKeyUp(QKeyEvent* event) override;
    bool PreTranslateMessage(void* message) override;
    bool OnSetCursor() override;

protected:
    FRAME::IBaseCoreData* GetBaseCoreData() const { return m_core; }
    void SetStatus(CmdStatus status) { m_status = status; }
    void SetFault(const std::wstring& fault) { m_fault = fault; }

private:
    ICmdObject* m_group = nullptr;
    FRAME::IBaseCoreData* m_core = nullptr;
    std::map<std::wstring, boost::any> m_params;
    CmdStatus m_status = CmdStatus::Idle;
    std::wstring m_fault;
};

/// A command that `Execute` runs from the event loop, so that the click which started it has been handled before.
class HOSTSDK_API CPushMsgCmdObj : public CCmdObject {
public:
    CPushMsgCmdObj();
    ~CPushMsgCmdObj() override;

    std::wstring GetGroup() const override;
    /// Refused while a run is queued, not while one runs: a command whose window is open is run again to raise it.
    bool Execute() override;
    /// Withdraws what is queued; what runs goes on.
    void Stop() override;

    /// The command's work; false leaves `FinishCommand` out.
    virtual bool RunCommand() = 0;
    /// Called after a successful `RunCommand`.
    virtual bool FinishCommand() = 0;

private:
    void runQueued();
    void settle();

    bool m_isQueued = false;
    int m_running = 0;                // a run may have another one within it
    std::unique_ptr<QTimer> m_queue;  // runs off for the queued run; a timer, see BASEUI::Wait
};

}  // namespace BASECORE::CMD
