#include "sdk/basecore/CmdObject.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/basecore/PlugIn.h"
#include "sdk/packages/IFunctionLogMgr.h"

// A plug-in that notes every step of its life with the host's function log.
namespace {

void note(const std::wstring& who, const std::wstring& step) {
    using BASECORE::FRAME::LookupManager;
    if (auto* log = LookupManager<PROJECTPACKAGE::IFunctionLogMgr>(BASECORE::NAMES::kFunctionLog))
        log->GetLogger()->Write(who, step);
}

class Manager final : public BASECORE::FRAME::CMgrObject {
public:
    using CMgrObject::CMgrObject;
    ~Manager() override { note(CMgrObject::GetName(), L"end"); }
    void Init() override { note(GetName(), L"Init"); }
    void Startup() override { note(GetName(), L"Startup"); }
    void Shutdown() override { note(GetName(), L"Shutdown"); }
};

class Command final : public BASECORE::CMD::CPushMsgCmdObj {
public:
    ~Command() override { note(L"command", L"end"); }
    std::wstring GetName() const override { return L"GOOD_Cmd"; }
    void SetBaseCoreData(BASECORE::FRAME::IBaseCoreData* core) override { note(L"command", core ? L"core" : L"none"); }
    void ViewModelTypeRegistration() override { note(L"command", L"types"); }
    void ViewRegistration() override { note(L"command", L"views"); }
    bool RunCommand() override {
        note(L"command", L"run");
        return true;
    }
    bool FinishCommand() override { return true; }
};

}  // namespace

PLUGIN_EXPORT void GetManagers(BASECORE::PLUGIN::ManagerList& managers) {
    managers.push_back(new Manager(L"GOOD_1"));
    managers.push_back(new Manager(L"GOOD_2"));
}

PLUGIN_EXPORT void GetCommands(BASECORE::PLUGIN::CommandList& commands) {
    commands.push_back(new Command);
}
