#include "commands/DisclosureManage/ui/task/EditNameWnd.h"

#include <QDialog>

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/task/PeopleNames.h"
#include "commands/DisclosureManage/ui/task/TaskConflictViewModel.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "ui/common/WideText.h"

void CEditNameWnd::edit(const QString& taskId, const QString& name, const Store& store) {
    if (FindDisclosureManager())
        CEditNameWnd(taskId, name, store).frame().run();
}

CEditNameWnd::CEditNameWnd(const QString& taskId, const QString& name, const Store& store)
    : m_before(name), m_name(name), m_store(store) {
    m_seen.id = taskId.toStdWString();
    FindDisclosureManager()->FindCachedTask(m_seen.id, m_seen);
    load("EditTaskName.qml", "theWnd", this, {300, 170});
}

void CEditNameWnd::setTaskName(const QString& name) {
    if (name == m_name)
        return;
    m_name = OneLine(name);
    emit taskNameChanged();
}

void CEditNameWnd::onClickOk() {
    if (m_isDone)
        return;  // a second click came before the dialog was closed
    setTaskName(TidyName(m_name));
    if (const QString broken = BrokenNameRule(m_name); !broken.isEmpty()) {
        ShowNotice(broken);
        return;
    }
    m_isDone = m_name == m_before || m_store(m_name);
    if (m_isDone)
        frame().dialog()->close();
    else
        lookForConflict();
}

void CEditNameWnd::lookForConflict() {
    DISCLOSUREPACKAGE::IDisclosureManageMgr* manager = FindDisclosureManager();
    DISCLOSUREPACKAGE::TaskRecord present;
    if (!manager || !UntoldFailure().isEmpty() || !manager->QueryTaskById(m_seen.id, present) ||
        present.updateDateMills == m_seen.updateDateMills)
        return;
    m_seen = present;
    m_note = tr("%1，现在的名称是“%2”。再次确定即保存您的名称。")
                 .arg(ChangeOf(present, PeopleNames::ofDepartment(manager->GetCurDeptId())), FromWide(present.name));
    emit noteChanged();
}
