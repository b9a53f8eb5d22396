#pragma once

#include "sdk/Export.h"
#include "sdk/packages/disclosure/Records.h"

class QWidget;

namespace DISCLOSUREPACKAGE {

/// The feature's service layer. Registered as "APP_DISCLOSURE_MGR". Every call runs on the UI thread and returns when
/// the service has answered; bool results are true on success; nothing is ever thrown. Slots are in a fixed order.
class HOSTSDK_API IDisclosureManageMgr {
public:
    /// Creates a catalog; the caller gives the id. Reads `id`, `name` and `parentId`.
    virtual bool SaveCatalog(const CatalogRecord& catalog) = 0;
    /// Appends the department's catalogs in the service's order; an empty `deptId` means the current department. The
    /// list stays as it was on failure.
    virtual bool ListCatalogs(std::vector<CatalogRecord>& catalogs, const std::wstring& deptId) = 0;
    /// Deletes a catalog with everything below it and all its tasks.
    virtual bool DeleteCatalog(const std::wstring& id) = 0;
    /// Moves a catalog one place among its siblings: `offset` 0 up, 1 down.
    virtual bool MoveCatalog(const std::wstring& id, int32_t offset) = 0;
    /// Renames a catalog. Reads `id` and `name`.
    virtual bool UpdateCatalog(const CatalogRecord& catalog) = 0;

    /// The parent of the main window's dialog; borrowed, null at first.
    virtual void SetParentWidget(QWidget* parent) = 0;
    virtual QWidget* GetParentWidget() = 0;

    /// Creates a task with its people, links and documents; an empty id is given one, the caller's record stays as it
    /// is. Where an earlier call, whose answer was lost, has created the id, the task becomes what the record says.
    virtual bool SaveTask(const TaskRecord& task) = 0;
    /// Changes a task: its own fields, where a date of 0 clears the date, and what was added to or taken from its
    /// lists since it was read. Refused when somebody changed it after `updateDateMills`, unless that is 0.
    virtual bool UpdateTask(const TaskRecord& task) = 0;
    virtual bool MoveTaskToCatalog(const std::wstring& taskId, const std::wstring& catalogId) = 0;
    virtual bool BatchDeleteTasks(const std::vector<std::wstring>& taskIds) = 0;
    /// Appends one page of tasks and keeps it for `FindCachedTask`; `total` counts the tasks of all pages.
    virtual bool PageTasks(const TaskQuery& query, std::vector<TaskRecord>& tasks, int32_t& total) = 0;
    /// `config` holds the defaults on failure.
    virtual bool QueryPushConfig(const std::wstring& deptId, PushConfig& config) = 0;
    virtual bool SavePushConfig(const PushConfig& config) = 0;
    virtual bool UpdatePushConfig(const PushConfig& config) = 0;
    virtual bool ExportTasksToExcel(const std::vector<TaskRecord>& tasks, const std::wstring& file) = 0;
    /// Records a user action; returns what the host's logger returns, 1 when the host has none.
    virtual int WriteFunctionLog(const std::wstring& title, const std::wstring& path) = 0;
    /// The local path of the picture of a linked item; empty when there is none.
    virtual std::wstring GetLinkThumbnail(const LinkRecord& link) = 0;
    /// A task of the last page fetched, without a service call.
    virtual bool FindCachedTask(const std::wstring& id, TaskRecord& task) = 0;
    /// The current project's department; empty when no project is open.
    virtual std::wstring GetCurDeptId() = 0;
    /// Lets the user choose a local file, uploads it and appends its record.
    virtual bool UploadLocalFiles(std::vector<UploadedFileRecord>& files) = 0;
    virtual std::wstring GetCurDeptName() = 0;
    /// A task as the service has it now; the record stays as it was on failure, and `FindCachedTask` does not learn it.
    virtual bool QueryTaskById(const std::wstring& id, TaskRecord& task) = 0;

protected:
    ~IDisclosureManageMgr() = default;
};

}  // namespace DISCLOSUREPACKAGE
