#pragma once

#include <memory>

#include "sdk/basecore/CmdObject.h"

class DisclosureMgrProvider;

namespace DISCLOSUREPACKAGE {

/// The command that opens the disclosure management window.
class CDisclosureMgrCmd final : public BASECORE::CMD::CPushMsgCmdObj {
public:
    CDisclosureMgrCmd();
    ~CDisclosureMgrCmd() override;

    std::wstring GetName() const override;
    void ViewModelTypeRegistration() override;
    void ViewRegistration() override;
    /// Opens the window, or raises it when it is open; returns when it is closed. Shows the task named by
    /// `kParamTaskId` and forgets the parameter.
    bool RunCommand() override;
    bool FinishCommand() override;

private:
    std::unique_ptr<DisclosureMgrProvider> m_provider;  // made by the first run
};

}  // namespace DISCLOSUREPACKAGE
