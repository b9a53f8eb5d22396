#include "commands/DisclosureManage/ui/task/EditDocWnd.h"

#include <algorithm>

#include <QDialog>

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/task/PeopleNames.h"
#include "commands/DisclosureManage/ui/task/TaskConflictViewModel.h"
#include "commands/DisclosureManage/ui/task/TaskFields.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "sdk/packages/disclosure/DocumentLimits.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

using DISCLOSUREPACKAGE::TaskDocRecord;
using DISCLOSUREPACKAGE::TaskRecord;

namespace {

template <class Docs>
auto linkIn(Docs& docs, const TaskDocRecord& wanted) {
    return std::find_if(docs.begin(), docs.end(), [&](const TaskDocRecord& doc) { return doc.id == wanted.id; });
}

bool hasDocument(const DocumentLinks& docs, const std::wstring& documentId) {
    return std::any_of(docs.begin(), docs.end(),
                       [&](const TaskDocRecord& doc) { return IsOfStore(doc) && doc.refDocId == documentId; });
}

/// What made `own` of `began`, made on `present`.
DocumentLinks Rebased(const DocumentLinks& began, const DocumentLinks& own, const DocumentLinks& present) {
    DocumentLinks docs = present;
    std::erase_if(docs, [&](const TaskDocRecord& doc) {
        return linkIn(began, doc) != began.end() && linkIn(own, doc) == own.end();
    });
    for (const TaskDocRecord& doc : own) {
        const auto before = linkIn(began, doc);
        const auto now = linkIn(docs, doc);
        const bool isNew = before == began.end();
        if (now != docs.end() && (isNew || before->uuid != doc.uuid))
            *now = doc;  // another content
        else if (now == docs.end() && isNew && !(IsOfStore(doc) && hasDocument(docs, doc.refDocId)))
            docs.push_back(doc);
    }
    return docs;
}

}  // namespace

bool CEditDocWnd::edit(const TaskRecord& task) {
    if (task.id.empty() || !FindDisclosureManager())
        return false;
    CEditDocWnd wnd(task);
    wnd.frame().run();
    return wnd.m_isSaved;
}

CEditDocWnd::CEditDocWnd(const TaskRecord& task) : m_began(task), m_task(task), m_docs(m_task) {
    connect(&m_docs, &CTaskDocuments::changed, this, &CEditDocWnd::connectDocChanged);
    frame().setMayClose([this] { return m_isDone || !isChanged() || mayDiscard(); });
    load("EditDoc.qml", "theWnd", this, {420, 380});
}

bool CEditDocWnd::isChanged() const {
    return !IsSameTask(m_began, m_task);
}

void CEditDocWnd::onClickConnectDoc() {
    m_docs.connectStore();
}

void CEditDocWnd::onClickUploadDoc() {
    m_docs.upload();
}

void CEditDocWnd::onClickViewDocItem(int index) {
    m_docs.view(index);
}

void CEditDocWnd::onClickDelDocItem(int index) {
    m_docs.remove(index);
}

void CEditDocWnd::onClickOK() {
    if (m_isDone)
        return;  // a second click came before the dialog was closed
    if (m_task.disclosureTaskDocList.size() > DISCLOSUREPACKAGE::kMostDocuments) {
        ShowNotice(TooManyDocuments());
        return;
    }
    auto* manager = FindDisclosureManager();
    if (!manager)
        return;
    m_isSaved = isChanged() && Commanded(tr("保存"), [&] { return manager->UpdateTask(m_task); });
    m_isDone = m_isSaved || !isChanged();
    if (m_isDone)
        frame().dialog()->close();
    else
        lookForConflict();
}

void CEditDocWnd::lookForConflict() {
    auto* manager = FindDisclosureManager();
    TaskRecord present;
    if (!manager || !UntoldFailure().isEmpty() || !manager->QueryTaskById(m_task.id, present) ||
        present.updateDateMills == m_task.updateDateMills)
        return;
    const QString change = ChangeOf(present, PeopleNames::ofDepartment(manager->GetCurDeptId()));
    if (present.isPublish != 0) {
        ShowNotice(tr("%1，并且已发布，不能再编辑。").arg(change));
        return;
    }
    TaskRecord rebased = present;
    rebased.disclosureTaskDocList =
        Rebased(m_began.disclosureTaskDocList, m_task.disclosureTaskDocList, present.disclosureTaskDocList);
    m_began = present;
    m_task = rebased;
    m_note = tr("%1。再次确定即在其上保存您的改动。").arg(change);
    emit noteChanged();
    m_docs.renew();
}
