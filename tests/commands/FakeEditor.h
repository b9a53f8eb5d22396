#pragma once

#include <string>
#include <vector>

#include <QDateTime>

#include "sdk/packages/IProjectDataMgr.h"
#include "sdk/packages/documents/IKpxDocOperMgr.h"
#include "tests/commands/FakeTasks.h"

/// What the task editor and the remind dialog talk to: tasks can be created, settings stored and files "uploaded".
class FakeEditorService : public FakeTasks {
public:
    using PushConfig = DISCLOSUREPACKAGE::PushConfig;

    std::vector<TaskRecord> saves;
    PushConfig config;        // none as long as it has no id
    std::wstring chosenFile;  // empty: the user gives up
    int uploads = 0;

    bool SaveTask(const TaskRecord& task) override {
        saves.push_back(task);
        if (!accepts(L"create " + task.name))
            return false;
        tasks.push_back(task);
        tasks.back().id = L"created";
        return true;
    }
    bool QueryPushConfig(const std::wstring& deptId, PushConfig& asked) override {
        const bool isAnswered = accepts(L"settings of " + deptId);
        asked = isAnswered ? config : PushConfig();
        return isAnswered;
    }
    bool SavePushConfig(const PushConfig& saved) override { return store(L"save settings", saved); }
    bool UpdatePushConfig(const PushConfig& saved) override { return store(L"update settings", saved); }
    bool UploadLocalFiles(std::vector<DISCLOSUREPACKAGE::UploadedFileRecord>& files) override {
        if (chosenFile.empty())
            return false;
        const std::wstring number = std::to_wstring(++uploads);
        files.push_back({0, L"file" + number, chosenFile, L"uuid" + number, L"md5" + number, 2048, L"pdf", 1});
        return true;
    }

private:
    bool store(const std::wstring& call, const PushConfig& saved) {
        if (!accepts(call))
            return false;
        config = saved;
        return true;
    }
};

/// 总公司 / 一分部(李娜) / 钢筋组(张伟 twice, noname), and 总公司 / 二分部(zhao); 空部门 has nobody.
class FakeOrganisation : public FakePeople {
public:
    bool readable = true;
    std::vector<BASEPACKAGE::DeptRecord> departments{{L"dept", L"总公司", L"above"},
                                                     {L"one", L"一分部", L"dept"},
                                                     {L"empty", L"空部门", L"dept"},
                                                     {L"two", L"二分部", L"dept"},
                                                     {L"steel", L"钢筋组", L"one"}};
    std::vector<BASEPACKAGE::UserRecord> people{{L"lina", L"李娜", L"", L"one"},
                                                {L"zhangwei", L"张伟", L"", L"steel"},
                                                {L"zhangwei2", L"张伟", L"", L"steel"},
                                                {L"noname", L"", L"", L"steel"},
                                                {L"ZhaoLei", L"赵磊", L"", L"two"}};

    bool GetDepartments(std::vector<BASEPACKAGE::DeptRecord>& list, const std::wstring&) const override {
        list = departments;
        return readable;
    }
    bool GetUsers(std::vector<BASEPACKAGE::UserRecord>& list, const std::wstring&) const override {
        list = people;
        return readable;
    }
};

/// One project; documents that are opened are noted.
class FakeProjects : public PROJECTPACKAGE::IProjectDataMgr, public BASECORE::FRAME::CMgrObject {
public:
    FakeProjects() : CMgrObject(BASECORE::NAMES::kProjectData) {}
    bool GetProjects(std::vector<PROJECTPACKAGE::ProjectRecord>& projects) override {
        projects = {{7, L"p7", L"一号楼", L"dept", 0, 0, 3}};
        return true;
    }
    bool GetProjectName(std::wstring&, int32_t) override { return false; }
};

class FakeDocOpener : public DOCUMENTPACKAGE::IKpxDocOperMgr, public BASECORE::FRAME::CMgrObject {
public:
    FakeDocOpener() : CMgrObject(BASECORE::NAMES::kDocumentOperations) {}
    std::vector<std::wstring> opened;

    bool OpenDocument(const std::wstring& uuid, const std::wstring& name, const std::wstring& extension) override {
        opened.push_back(uuid + L" " + name + L" " + extension);
        return true;
    }
};

/// A task that keeps every rule, with its links: a viewport and a node of project 7, and a node of an unknown project.
inline DISCLOSUREPACKAGE::TaskRecord wholeTask(const wchar_t* id = L"t0") {
    DISCLOSUREPACKAGE::TaskRecord task;
    task.id = id;
    task.name = L"柱钢筋绑扎";
    task.disclosureCatalogId = L"base";
    task.disclosureUserName = L"zhangwei";
    task.disclosureUserRealname = L"张伟";
    task.status = 1;
    task.expiryDateMills = QDateTime::currentDateTime().addDays(3).toMSecsSinceEpoch();
    task.remark = L"三层";
    task.disclosureTaskReceiveUserList = {{L"r1", L"t0", L"lina", L"李娜", L"head", 1, 5},
                                          {L"r2", L"t0", L"gone", L"离职者", L"", 0, 0}};
    task.disclosureTaskViewportList = {{L"v1", L"t0", 7, L"view", L"三层视口", L""}};
    task.disclosureTaskNodeList = {{L"n1", L"t0", 7, L"node", L"梁柱节点", L"", L""},
                                   {L"n2", L"t0", 8, L"node", L"", L"", L""}};
    task.disclosureTaskDocList = {{L"d1", L"t0", 0, L"方案.pdf", L"uuid", L"md5", 9, L"pdf", 1, L""}};
    return task;
}
