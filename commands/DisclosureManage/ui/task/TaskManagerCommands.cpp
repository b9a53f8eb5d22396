#include <map>

#include <QHash>

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/Processing.h"
#include "commands/DisclosureManage/ui/task/AddTaskWnd.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeWnd.h"
#include "commands/DisclosureManage/ui/task/Days.h"
#include "commands/DisclosureManage/ui/task/EditDocWnd.h"
#include "commands/DisclosureManage/ui/task/EditNameWnd.h"
#include "commands/DisclosureManage/ui/task/RemindWnd.h"
#include "commands/DisclosureManage/ui/task/TaskManagerViewModel.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

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

QVector<TaskManagerViewModel::Picked> TaskManagerViewModel::picked(const QVariantList& cData) const {
    QVector<Picked> tasks;
    bool isOfChecked = true;
    for (const TaskModel* task : rows(cData)) {
        tasks.append({task->id(), task->catalogid(), task->name()});
        isOfChecked = isOfChecked && task->selected();
    }
    if (isOfChecked)  // a row that is not checked is meant alone, as by its menu
        for (const Picked& task : m_checkedElsewhere)
            tasks.append(task);
    return tasks;
}

QString TaskManagerViewModel::amountOf(const QVector<Picked>& tasks) const {
    const QString amount =
        tasks.size() == 1 ? tr("任务“%1”").arg(tasks.first().name) : tr("共%1个任务").arg(tasks.size());
    const auto elsewhere = std::count_if(tasks.begin(), tasks.end(),
                                         [this](const Picked& task) { return m_checkedElsewhere.contains(task.id); });
    return elsewhere == 0 ? amount : tr("%1，其中%2个在其他页").arg(amount).arg(elsewhere);
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
    emit done(tr("新任务已保存"));
}

void TaskManagerViewModel::ModifyTask(TaskModel* pTask) {
    const Hold hold(*this);
    if (!editable(pTask))
        return;
    // The row may be old, and what is typed into an old version of a task cannot be saved.
    TaskRecord task;
    if (!Commanded(tr("打开任务"),
                   [&] { return FindDisclosureManager()->QueryTaskById(pTask->id().toStdWString(), task); }))
        return;
    pTask->assign(task, m_names);
    m_staleRows.insert(pTask->id());
    if (!editable(task.isPublish != 0) || !CAddTaskWnd::edit(task))
        return;
    rereadRow(pTask);
    emit done((pTask->released() ? tr("任务“%1”已发布") : tr("任务“%1”已保存")).arg(pTask->name()));
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
    if (!editable(task))
        return;
    TaskRecord record;
    if (!Commanded(tr("打开任务"), [&] { return find(*FindDisclosureManager(), *task, record); }) ||
        !editable(record.isPublish != 0) || !CEditDocWnd::edit(record))
        return;
    rereadRow(task);
    emit done(tr("任务“%1”已保存").arg(task->name()));
}

void TaskManagerViewModel::onEditTaskName(TaskModel* task) {
    const Hold hold(*this);
    if (!editable(task))
        return;
    CEditNameWnd::edit(task->id(), task->name(), [&](const QString& name) {
        return updateTask(task, [&](TaskRecord& record) {
            record.name = name.toStdWString();
            return true;
        });
    });
}

void TaskManagerViewModel::OnDelTasks(const QVariantList& cData) {
    const Hold hold(*this);
    const QVector<Picked> tasks = picked(cData);
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (tasks.isEmpty() || !manager)
        return;
    if (AskBeforeLoss(tr("是否删除？删除后，不能恢复数据。"), amountOf(tasks)) != BASEUI::MessageResult::Ok)
        return;

    std::vector<std::wstring> ids;
    QSet<QString> deleted;
    CountChanges changes;
    for (const Picked& task : tasks) {
        ids.push_back(task.id.toStdWString());
        deleted.insert(task.id);
        --changes[task.catalogId];
    }
    if (!Commanded(tr("删除"), [&] { return manager->BatchDeleteTasks(ids); }))
        return;
    uncheck(deleted);
    RefreshCurrentTaskInfo(true);
    manager->WriteFunctionLog(tr("删除交底").toStdWString(), tr("技术→交底管理→删除").toStdWString());
    for (const auto& [catalogId, count] : changes)
        emit taskCountChange(count, catalogId);
}

void TaskManagerViewModel::OnMoveTasks(const QVariantList& cData) {
    const Hold hold(*this);
    const QVector<Picked> tasks = picked(cData);
    if (tasks.isEmpty() || !FindDisclosureManager())
        return;
    QString target;
    CCatalogTreeWnd::choose(target, amountOf(tasks));
    if (!target.isEmpty() && target != m_catalogId)
        moveTasksTo(target, cData);
}

void TaskManagerViewModel::moveTasksTo(const QString& catalogId, const QVariantList& cData) {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (!manager)
        return;
    const Hold hold(*this);
    CountChanges changes;
    QSet<QString> moved;
    bool isBroken = false;
    {
        const Processing progress;
        for (const Picked& task : picked(cData)) {
            if (task.catalogId == catalogId)
                continue;
            DISCLOSUREPACKAGE::SetLastFailure({});
            isBroken = !manager->MoveTaskToCatalog(task.id.toStdWString(), catalogId.toStdWString());
            if (isBroken)
                break;
            moved.insert(task.id);
            --changes[task.catalogId];
            ++changes[catalogId];
        }
    }
    if (isBroken)
        SayFailure(tr("移动"));
    if (moved.isEmpty())
        return;
    uncheck(moved);
    RefreshCurrentTaskInfo(true);
    for (const auto& [changedId, count] : changes)
        emit taskCountChange(count, changedId);
    emit done(tr("已移动%1个任务").arg(moved.size()));
}

bool TaskManagerViewModel::find(IDisclosureManageMgr& manager, const TaskModel& row, TaskRecord& task) const {
    const std::wstring id = row.id().toStdWString();
    // As long as a refresh is due, somebody else may have changed what the page was made from.
    const bool isPageOld = m_timer.isActive() || m_refreshHeld || m_staleRows.contains(row.id());
    return (!isPageOld && manager.FindCachedTask(id, task)) || manager.QueryTaskById(id, task);
}

void TaskManagerViewModel::rereadRow(TaskModel* task) {
    m_staleRows.insert(task->id());
    TaskRecord record;
    if (FindDisclosureManager()->QueryTaskById(task->id().toStdWString(), record))
        task->assign(record, m_names);
}

bool TaskManagerViewModel::updateTask(TaskModel* task, const std::function<bool(TaskRecord&)>& change) {
    if (!editable(task))
        return false;
    IDisclosureManageMgr* manager = FindDisclosureManager();
    TaskRecord record;
    if (!Commanded(tr("修改"), [&] { return find(*manager, *task, record); }) || !change(record))
        return false;
    if (Commanded(tr("修改"), [&] { return manager->UpdateTask(record); })) {
        task->assign(record, m_names);
        rereadRow(task);  // which has a new version now
        emit done(tr("任务“%1”已保存").arg(task->name()));
        return true;
    }
    m_staleRows.insert(task->id());
    if (UntoldFailure().isEmpty())
        RefreshCurrentTaskInfo(true);  // the service knows of somebody else's change
    return false;
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
    const int64_t mills = DayStart(sDate);
    if (field == fields.end() || (mills == 0 && !sDate.isEmpty()))
        return false;
    return updateTask(task, [&](TaskRecord& record) {
        record.** field = mills;
        const QString broken = StartsAfterEnd(record);
        if (!broken.isEmpty())
            ShowNotice(broken);
        return broken.isEmpty();
    });
}
