#pragma once

#include <string>
#include <vector>

#include <QDateTime>

#include "sdk/basecore/ManagerNames.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IProjectDataMgr.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

/// One project.
class FakeProjects : public PROJECTPACKAGE::IProjectDataMgr, public BASECORE::FRAME::CMgrObject {
public:
    FakeProjects() : CMgrObject(BASECORE::NAMES::kProjectData) {}
    bool GetProjects(std::vector<PROJECTPACKAGE::ProjectRecord>& projects) override {
        projects = {{7, L"p7", L"一号楼", L"dept", 0, 0, 3}};
        return true;
    }
    bool GetProjectName(std::wstring&, int32_t) override { return false; }
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
