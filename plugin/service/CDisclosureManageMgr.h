#pragma once

#include <memory>

#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IKpxProjLoadObserver.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

namespace io::swagger::client::model {
class DisclosureTaskResponse;
}

namespace DISCLOSUREPACKAGE {

/// The feature's service layer: turns the screens' calls into calls of the service and of the host's managers. The
/// order of the bases is fixed.
class CDisclosureManageMgr : public IDisclosureManageMgr,
                             public BASECORE::FRAME::CMgrObject,
                             private PROJECTPACKAGE::IKpxProjLoadObserver {
public:
    explicit CDisclosureManageMgr(const std::wstring& name);
    ~CDisclosureManageMgr() override;

    void Init() override;
    void Startup() override;
    void Shutdown() override;

    bool SaveCatalog(const CatalogRecord& catalog) override;
    bool ListCatalogs(std::vector<CatalogRecord>& catalogs, const std::wstring& deptId) override;
    bool DeleteCatalog(const std::wstring& id) override;
    bool MoveCatalog(const std::wstring& id, int32_t offset) override;
    bool UpdateCatalog(const CatalogRecord& catalog) override;
    void SetParentWidget(QWidget* parent) override;
    QWidget* GetParentWidget() override;
    bool SaveTask(const TaskRecord& task) override;
    bool UpdateTask(const TaskRecord& task) override;
    bool MoveTaskToCatalog(const std::wstring& taskId, const std::wstring& catalogId) override;
    bool BatchDeleteTasks(const std::vector<std::wstring>& taskIds) override;
    bool PageTasks(const TaskQuery& query, std::vector<TaskRecord>& tasks, int32_t& total) override;
    bool QueryPushConfig(const std::wstring& deptId, PushConfig& config) override;
    bool SavePushConfig(const PushConfig& config) override;
    bool UpdatePushConfig(const PushConfig& config) override;
    bool ExportTasksToExcel(const std::vector<TaskRecord>& tasks, const std::wstring& file) override;
    int WriteFunctionLog(const std::wstring& title, const std::wstring& path) override;
    std::wstring GetLinkThumbnail(const LinkRecord& link) override;
    bool FindCachedTask(const std::wstring& id, TaskRecord& task) override;
    std::wstring GetCurDeptId() override;
    bool UploadLocalFiles(std::vector<UploadedFileRecord>& files) override;
    std::wstring GetCurDeptName() override;
    bool QueryTaskById(const std::wstring& id, TaskRecord& task) override;

private:
    void OnProjectLoaded(PROJECTPACKAGE::IProject* project) override;
    void OnProjectSaved(PROJECTPACKAGE::IProject* project) override;
    void OnProjectClosed(PROJECTPACKAGE::IProject* project) override;
    bool CanLoadProject(PROJECTPACKAGE::IProject* project) override;
    bool CanCloseProject(PROJECTPACKAGE::IProject* project) override;

    /// The task as the service had it when `task` was made from it; false when it cannot be had.
    bool FindLoadedTask(const TaskRecord& task, TaskRecord& loaded);

    QWidget* m_parentWidget = nullptr;
    // The list that the last page was appended to, as it was then: what it held before, which is hardly ever anything,
    // and the page as it came, of which hardly a task is asked for again.
    std::vector<TaskRecord> m_heldBefore;
    std::vector<std::shared_ptr<io::swagger::client::model::DisclosureTaskResponse>> m_lastPage;
};

}  // namespace DISCLOSUREPACKAGE
