#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "sdk/basecore/IRestServWebMgr.h"
#include "sdk/basecore/IWebMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/IFunctionLogMgr.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/IOrgDeptMgr.h"
#include "tests/support/FakeCore.h"

/// Managers of a host that a test sets by hand and that keep what they were told.
namespace support {

using BASECORE::FRAME::CMgrObject;

/// Somebody is logged in with one cookie for every address.
class FakeWebMgr : public CMgrObject,
                   public BASECORE::WEB::IWebMgr,
                   public BASECORE::WEB::IWebSession,
                   public BASECORE::WEB::ICookieHolder {
public:
    FakeWebMgr() : CMgrObject(BASECORE::NAMES::kWebService) {}

    std::wstring GetServiceAddress(const std::wstring& serviceKey) const override {
        return serviceKey == BASECORE::NAMES::kServiceKey ? address : std::wstring();
    }
    const IWebSession* GetCurrentSession() const override { return hasSession ? this : nullptr; }
    const ICookieHolder* GetCookieHolder(const std::wstring&) const override { return hasCookie ? this : nullptr; }
    std::string GetEntry(const std::string& entry) const override { return entry == "VALUE" ? sessionId : ""; }

    std::wstring address;
    std::string sessionId = "session-1";
    bool hasSession = true;
    bool hasCookie = true;
};

/// Keeps what was reported; answers each renewal with the next of `renewals`, false when they have run out.
class FakeRestServMgr : public CMgrObject, public BASECORE::IRestServWebMgr {
public:
    FakeRestServMgr() : CMgrObject(BASECORE::NAMES::kRestService) {}

    bool HasSession(const std::wstring&) const override { return true; }
    bool RenewSession(const std::wstring& serviceKey, const std::wstring& message) override {
        renewed.emplace_back(serviceKey, message);
        return renewed.size() <= renewals.size() && renewals[renewed.size() - 1];
    }
    void EndSession(const std::wstring&) override {}
    void ReportStatus(int code, const std::wstring& text) override { reported.emplace_back(code, text); }

    std::vector<bool> renewals;
    std::vector<std::pair<std::wstring, std::wstring>> renewed;  // service key, message
    std::vector<std::pair<int, std::wstring>> reported;          // code, text
};

class FakeCurProjectMgr : public CMgrObject, public PROJECTPACKAGE::IKpxCurProjectMgr {
public:
    FakeCurProjectMgr() : CMgrObject(BASECORE::NAMES::kCurrentProject) {}

    void AddProjLoadObserver(PROJECTPACKAGE::IKpxProjLoadObserver* observer, int order) override {
        observers[observer] = order;
    }
    void RemoveProjLoadObserver(PROJECTPACKAGE::IKpxProjLoadObserver* observer) override { observers.erase(observer); }
    std::wstring GetCurDeptId() const override { return deptId; }
    PROJECTPACKAGE::IProject* GetCurProject() const override { return project; }

    std::wstring deptId = L"dept-1";
    PROJECTPACKAGE::IProject* project = nullptr;
    std::map<PROJECTPACKAGE::IKpxProjLoadObserver*, int> observers;  // with their order
};

class FakeOrgDeptMgr : public CMgrObject, public BASEPACKAGE::IOrgDeptMgr {
public:
    FakeOrgDeptMgr() : CMgrObject(BASECORE::NAMES::kDepartments) {}

    bool GetDeptName(std::wstring& name, const std::wstring& deptId) const override {
        for (const auto& department : departments)
            if (department.id == deptId) {
                name = department.name;
                return true;
            }
        return false;
    }
    bool GetDepartments(std::vector<BASEPACKAGE::DeptRecord>& found, const std::wstring&) const override {
        found = departments;
        return isReadable;
    }
    bool GetUsers(std::vector<BASEPACKAGE::UserRecord>& found, const std::wstring&) const override {
        ++reads;
        found = users;
        return isReadable;
    }

    std::vector<BASEPACKAGE::DeptRecord> departments{{L"dept-1", L"一分部", L""}};
    std::vector<BASEPACKAGE::UserRecord> users;
    bool isReadable = true;
    mutable int reads = 0;  // of the users
};

class FakeFunctionLogMgr : public CMgrObject,
                           public PROJECTPACKAGE::IFunctionLogMgr,
                           public PROJECTPACKAGE::IFunctionLogger {
public:
    FakeFunctionLogMgr() : CMgrObject(BASECORE::NAMES::kFunctionLog) {}

    IFunctionLogger* GetLogger() override { return this; }
    int Write(const std::wstring& title, const std::wstring& path) override {
        written.emplace_back(title, path);
        return result;
    }

    int result = 0;
    std::vector<std::pair<std::wstring, std::wstring>> written;  // title, path
};

/// A core in which all of these are registered under their names; take one out with `managers.erase(name)`.
class FakeHost : public FakeCore {
public:
    FakeHost() {
        for (CMgrObject* manager : std::initializer_list<CMgrObject*>{&web, &rest, &project, &departments, &log})
            managers[manager->GetName()] = manager;
    }

    FakeWebMgr web;
    FakeRestServMgr rest;
    FakeCurProjectMgr project;
    FakeOrgDeptMgr departments;
    FakeFunctionLogMgr log;
};

}  // namespace support
