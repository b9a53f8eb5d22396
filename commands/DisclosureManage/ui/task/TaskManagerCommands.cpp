#include <map>

#include <QHash>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/Processing.h"
#include "commands/DisclosureManage/ui/task/AddTaskWnd.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeWnd.h"
#include "commands/DisclosureManage/ui/task/EditNameWnd.h"
#include "commands/DisclosureManage/ui/task/RemindWnd.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "sdk/basetools/TimeValue.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

using BASETOOLS::CKpxTimeValue;
using DISCLOSUREPACKAGE::IDisclosureManageMgr;
using DISCLOSUREPACKAGE::TaskRecord;

/// The commands of the task list, apart from its search.

namespace {

using CountChanges = std::map<QString, int>;  // by catalog

void showNotThereYet() {
    ShowNotice(TaskManagerViewModel::tr("该功能将在后续版本提供"));
}

/// Tells the user where a published task may not be changed.
bool editable(bool isPublished) {
    if (isPublished)
        ShowNotice(TaskManagerViewModel::tr("已发布的任务暂不支持编辑"));
    return !isPublished;
}

/// The same for a row. Nothing may be changed without a manager.
bool editable(const TaskModel* task) {
    return task && FindDisclosureManager() && editable(task->released());
}

}  // namespace

QVector<TaskModel*> TaskManagerViewModel::rows(const QVariantList& cData) const {
    QVector<TaskModel*> tasks;
    if (!m_taskModel)
        return tasks;
    for (const QVariant& row : cData) {
        bool isNumber = false;
        const int number = row.toInt(&isNumber);
        TaskModel* task = isNumber ? m_taskModel->task_list()->at(number) : nullptr;
        if (task && !tasks.contains(task))
            tasks.append(task);
    }
    return tasks;
}

void TaskManagerViewModel::AddTask() {
    const Hold hold(*this);
    if (m_catalogId.isEmpty() || !FindDisclosureManager())
        return;
    TaskRecord task;
    task.disclosureCatalogId = m_catalogId.toStdWString();
    if (!CAddTaskWnd::edit(task))
        return;
    setCurrentPage(1);  // the latest change comes first
    RefreshCurrentTaskInfo(true);
    emit taskCountChange(1, QString());
}

void TaskManagerViewModel::ModifyTask(TaskModel* pTask) {
    const Hold hold(*this);
    if (!editable(pTask))
        return;
    // The row may be old, and what is typed into an old version of a task cannot be saved.
    TaskRecord task;
    if (FindDisclosureManager()->QueryTaskById(pTask->id().toStdWString(), task) && editable(task.isPublish != 0))
        CAddTaskWnd::edit(task);
    RefreshCurrentTaskInfo(true);
}

void TaskManagerViewModel::onClickRemind() {
    const Hold hold(*this);
    if (FindDisclosureManager())
        CRemindWnd::edit();
}

void TaskManagerViewModel::OnExportTasksToExcel(const QVariantList& cData) {
    const Hold hold(*this);
    if (FindDisclosureManager() && !rows(cData).isEmpty())
        showNotThereYet();
}

void TaskManagerViewModel::onClickPreviewTask(TaskModel* task) {
    const Hold hold(*this);
    if (task && FindDisclosureManager())
        showNotThereYet();
}

void TaskManagerViewModel::onDateRefused(const QString& why) {
    const Hold hold(*this);
    ShowNotice(why);
}

void TaskManagerViewModel::onEditBimInfo(TaskModel* task) {
    const Hold hold(*this);
    if (editable(task))
        showNotThereYet();
}

void TaskManagerViewModel::onEditDocInfo(TaskModel* task) {
    const Hold hold(*this);
    if (editable(task))
        showNotThereYet();
}

void TaskManagerViewModel::onEditTaskName(TaskModel* task) {
    const Hold hold(*this);
    if (!editable(task))
        return;
    CEditNameWnd::edit(task->name(), [&](const QString& name) {
        return updateTask(task, [&](TaskRecord& record) {
            record.name = name.toStdWString();
            return true;
        });
    });
}

void TaskManagerViewModel::OnDelTasks(const QVariantList& cData) {
    const Hold hold(*this);
    const QVector<TaskModel*> tasks = rows(cData);
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (tasks.isEmpty() || !manager)
        return;
    if (ShowNotice(tr("是否删除？删除后，不能恢复数据。"), BASEUI::MessageButtons::OkCancel) !=
        BASEUI::MessageResult::Ok)
        return;

    std::vector<std::wstring> ids;
    CountChanges changes;
    for (const TaskModel* task : tasks) {
        ids.push_back(task->id().toStdWString());
        --changes[task->catalogid()];
    }
    if (!manager->BatchDeleteTasks(ids))
        return;
    RefreshCurrentTaskInfo(true);
    manager->WriteFunctionLog(tr("删除交底").toStdWString(), tr("技术→交底管理→删除").toStdWString());
    for (const auto& [catalogId, count] : changes)
        emit taskCountChange(count, catalogId);
}

void TaskManagerViewModel::OnMoveTasks(const QVariantList& cData) {
    const Hold hold(*this);
    if (rows(cData).isEmpty() || !FindDisclosureManager())
        return;
    QString target;
    CCatalogTreeWnd::choose(target);
    if (!target.isEmpty() && target != m_catalogId)
        moveTasksTo(target, cData);
}

void TaskManagerViewModel::moveTasksTo(const QString& catalogId, const QVariantList& cData) {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (!manager)
        return;
    const Hold hold(*this);
    const Processing progress;
    CountChanges changes;
    for (const TaskModel* task : rows(cData)) {
        if (task->catalogid() == catalogId)
            continue;
        if (!manager->MoveTaskToCatalog(task->id().toStdWString(), catalogId.toStdWString()))
            break;
        --changes[task->catalogid()];
        ++changes[catalogId];
    }
    if (changes.empty())
        return;
    RefreshCurrentTaskInfo(true);
    for (const auto& [changedId, count] : changes)
        emit taskCountChange(count, changedId);
}

bool TaskManagerViewModel::find(IDisclosureManageMgr& manager, const TaskModel& row, TaskRecord& task) const {
    const std::wstring id = row.id().toStdWString();
    // As long as a refresh is due, somebody else may have changed what the page was made from.
    const bool isPageOld = m_timer.isActive() || m_refreshHeld;
    return (!isPageOld && manager.FindCachedTask(id, task)) || manager.QueryTaskById(id, task);
}

bool TaskManagerViewModel::updateTask(TaskModel* task, const std::function<bool(TaskRecord&)>& change) {
    if (!editable(task))
        return false;
    IDisclosureManageMgr* manager = FindDisclosureManager();
    TaskRecord record;
    if (!find(*manager, *task, record) || !change(record))
        return false;
    const bool accepted = manager->UpdateTask(record);
    if (accepted)
        task->assign(record, m_names);
    // Either way the service knows more than the row: a new version of the task, or somebody else's change.
    RefreshCurrentTaskInfo(true);
    return accepted;
}

bool TaskManagerViewModel::onEditOwner(const QString& sNewDis, TaskModel* task) {
    const Hold hold(*this);
    if (task && sNewDis == task->owner())
        return true;
    return updateTask(task, [&](TaskRecord& record) {
        record.disclosureUserName = m_names.userName(sNewDis);
        return !record.disclosureUserName.empty();
    });
}

bool TaskManagerViewModel::onEditDate(const QString& sDate, const QString& sType, TaskModel* task) {
    const QHash<QString, int64_t TaskRecord::*> fields{
        {tr("施工开始日期"), &TaskRecord::constructionStartDateMills},
        {tr("施工结束日期"), &TaskRecord::constructionEndDateMills},
        {tr("计划交底日期"), &TaskRecord::planDisclosureDateMills},
    };
    const Hold hold(*this);
    const auto field = fields.find(sType);
    const int64_t mills = CKpxTimeValue::FromDayText(sDate.toStdWString());
    if (field == fields.end() || (mills <= 0 && !sDate.isEmpty()))
        return false;
    return updateTask(task, [&](TaskRecord& record) {
        record.** field = mills;
        const int64_t start = record.constructionStartDateMills;
        const int64_t end = record.constructionEndDateMills;
        if (start <= 0 || end <= 0 || start <= CKpxTimeValue::EndOfDay(end))
            return true;
        ShowNotice(tr("施工开始日期不能晚于施工结束日期"));
        return false;
    });
}
