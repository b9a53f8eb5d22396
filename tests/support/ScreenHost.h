#pragma once

#include <set>

#include <QString>
#include <QStringList>
#include <QWidget>

#include "commands/DisclosureManage/ui/task/CatalogTreeNode.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/baseui/ProgressDialog.h"
#include "sdk/packages/IAuthInfoMgr.h"
#include "sdk/packages/IServiceStateMgr.h"
#include "tests/support/FakeDisclosureMgr.h"
#include "tests/support/FakeHost.h"

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
        people.departments = {{L"dept", L"总公司", L"above"},
                              {L"one", L"一分部", L"dept"},
                              {L"empty", L"空部门", L"dept"},
                              {L"two", L"二分部", L"dept"},
                              {L"steel", L"钢筋组", L"one"}};
        people.users = {{L"lina", L"李娜", L"", L"one"},
                        {L"zhangwei", L"张伟", L"", L"steel"},
                        {L"zhangwei2", L"张伟", L"", L"steel"},
                        {L"noname", L"", L"", L"steel"},
                        {L"ZhaoLei", L"赵磊", L"", L"two"}};
        window.resize(1000, 700);
        core.mainWindow = &window;
        add(manager);
        add(rights);
        add(service);
        add(people);
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

    void add(BASECORE::FRAME::CMgrObject& added) { core.managers[added.GetName()] = &added; }
    void grant(std::initializer_list<const wchar_t*> names) {
        rights.granted.clear();
        for (const wchar_t* name : names)
            rights.granted.push_back(BASETOOLS::CAuthCodeTool::GetAuthCode(name));
    }
    /// The messages since the last time, joined by "|".
    std::string told() { return std::exchange(messages, {}).join('|').toStdString(); }

    void ShowProgressDialog(const std::wstring& title, const std::wstring& text) override {
        progress << QString::fromStdWString(title + L"/" + text);
    }
    void CloseProgressDialog() override { progress << "closed"; }

    FakeCore core;
    QWidget window;
    FakeDisclosureMgr manager;
    FakeRights rights;
    FakeServiceState service;
    FakeOrgDeptMgr people;  // 总公司 / 一分部(李娜) / 钢筋组(张伟 twice, noname), and 总公司 / 二分部(赵磊)
    QStringList messages;  // a question ends in "?"
    QStringList progress;
    BASEUI::MessageResult answer = BASEUI::MessageResult::Ok;
};

}  // namespace support
