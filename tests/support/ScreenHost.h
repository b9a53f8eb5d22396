#pragma once

#include <set>

#include <QString>
#include <QStringList>
#include <QWidget>

#include "commands/DisclosureManage/ui/task/CatalogTreeNode.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/baseui/ProgressDialog.h"
#include "sdk/packages/IAuthInfoMgr.h"
#include "sdk/packages/IServiceStateMgr.h"
#include "tests/support/FakeCore.h"
#include "tests/support/FakeDisclosureMgr.h"

namespace support {

/// The rights a test grants, by code.
class FakeRights : public BASEPACKAGE::IAuthInfoMgr, public BASECORE::FRAME::CMgrObject {
public:
    FakeRights() : CMgrObject(BASECORE::NAMES::kRights) {}
    bool HasAuth(int code) const override { return std::find(granted.begin(), granted.end(), code) != granted.end(); }

    std::vector<int> granted;
};

/// Whether the service answers, as a test says.
class FakeServiceState : public BASEPACKAGE::IServiceStateMgr, public BASECORE::FRAME::CMgrObject {
public:
    FakeServiceState() : CMgrObject(BASECORE::NAMES::kServiceState) {}
    bool IsReachable() const override { return reason.empty(); }
    std::wstring GetReason() const override { return reason; }
    void AddObserver(BASEPACKAGE::IServiceStateObserver* observer) override { m_observers.insert(observer); }
    void RemoveObserver(BASEPACKAGE::IServiceStateObserver* observer) override { m_observers.erase(observer); }
    void become(const std::wstring& why) {
        reason = why;
        for (auto* observer : std::set(m_observers))
            observer->OnServiceStateChanged(reason.empty());
    }

    std::wstring reason;

private:
    std::set<BASEPACKAGE::IServiceStateObserver*> m_observers;
};

/// A host as the screens need it: the command's types registered, a main window, the managers, message boxes that are
/// noted and answered, and a progress dialog that is noted.
class ScreenHost final : public BIMScrollBar::KnSbInterface {
public:
    ScreenHost() {
        qRegisterMetaType<CatalogTreeNode*>("CatalogTreeNode*");
        window.resize(1000, 700);
        core.mainWindow = &window;
        core.managers[BASECORE::NAMES::kDisclosure] = &manager;
        core.managers[BASECORE::NAMES::kRights] = &rights;
        core.managers[BASECORE::NAMES::kServiceState] = &service;
        BIMScrollBar::KnSbInterface::Install(this);
        BASEUI::SetMessageBoxHandler([this](const std::wstring& text, QWidget*, BASEUI::MessageButtons buttons) {
            messages << QString::fromStdWString(text) + (buttons == BASEUI::MessageButtons::OkCancel ? "?" : "");
            return answer;
        });
    }
    ~ScreenHost() {
        BASEUI::SetMessageBoxHandler({});
        BIMScrollBar::KnSbInterface::Install(nullptr);
    }
    ScreenHost(const ScreenHost&) = delete;
    ScreenHost& operator=(const ScreenHost&) = delete;

    void ShowProgressDialog(const std::wstring& title, const std::wstring& text) override {
        progress << QString::fromStdWString(title + L"/" + text);
    }
    void CloseProgressDialog() override { progress << "closed"; }

    FakeCore core;
    QWidget window;
    FakeDisclosureMgr manager;
    FakeRights rights;
    FakeServiceState service;
    QStringList messages;  // a question ends in "?"
    QStringList progress;
    BASEUI::MessageResult answer = BASEUI::MessageResult::Ok;
};

}  // namespace support
