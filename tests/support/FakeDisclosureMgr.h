#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <QStringList>

#include "sdk/basecore/ManagerNames.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "sdk/packages/disclosure/LastFailure.h"

namespace support {

inline auto hasId(const std::wstring& id) {
    return [id](const auto& record) { return record.id == id; };
}

/// A disclosure manager whose service keeps catalogs, tasks and settings in memory. Notes every call, and refuses on
/// demand.
class FakeDisclosureMgr : public DISCLOSUREPACKAGE::IDisclosureManageMgr, public BASECORE::FRAME::CMgrObject {
public:
    using CatalogRecord = DISCLOSUREPACKAGE::CatalogRecord;
    using TaskRecord = DISCLOSUREPACKAGE::TaskRecord;
    using TaskQuery = DISCLOSUREPACKAGE::TaskQuery;
    using PushConfig = DISCLOSUREPACKAGE::PushConfig;

    FakeDisclosureMgr() : CMgrObject(BASECORE::NAMES::kDisclosure) {}

    std::vector<CatalogRecord> catalogs;
    std::vector<TaskRecord> tasks;
    PushConfig config;  // none as long as it has no id
    std::vector<TaskQuery> queries;
    std::vector<TaskRecord> saves;
    std::vector<TaskRecord> updates;
    std::wstring chosenFile;  // of an upload; empty: the user gives up
    int uploads = 0;
    std::vector<std::wstring> calls;  // "save 名称 in parent", "delete id", ...
    std::wstring refused;             // the calls that begin so fail
    std::wstring unsaid;              // why they do where the host has not shown it; empty for a refusal
    QWidget* parent = nullptr;

    bool SaveCatalog(const CatalogRecord& catalog) override {
        if (!accepts(L"save " + catalog.name + L" in " + catalog.parentId))
            return false;
        catalogs.push_back(catalog);
        if (catalog.id.empty())
            catalogs.back().id = L"given";
        return true;
    }
    bool ListCatalogs(std::vector<CatalogRecord>& list, const std::wstring&) override {
        if (!accepts(L"list"))
            return false;
        list.insert(list.end(), catalogs.begin(), catalogs.end());
        return true;
    }
    bool DeleteCatalog(const std::wstring& id) override {
        return accepts(L"delete " + id) && std::erase_if(catalogs, hasId(id)) > 0;
    }
    bool MoveCatalog(const std::wstring& id, int32_t offset) override {
        return accepts(L"move " + id + L" " + std::to_wstring(offset));
    }
    bool UpdateCatalog(const CatalogRecord& catalog) override {
        return accepts(L"rename " + catalog.id + L" to " + catalog.name);
    }

    bool PageTasks(const TaskQuery& query, std::vector<TaskRecord>& page, int32_t& total) override {
        m_cache.clear();
        queries.push_back(query);
        if (!accepts(L"page"))
            return false;
        total = static_cast<int32_t>(tasks.size());
        const auto size = static_cast<std::size_t>(query.pageSize);
        for (auto i = static_cast<std::size_t>(query.currentPage - 1) * size; i < tasks.size() && page.size() < size;
             ++i)
            page.push_back(tasks[i]);
        m_cache = page;
        return true;
    }
    bool FindCachedTask(const std::wstring& id, TaskRecord& task) override { return find(m_cache, id, task); }
    bool QueryTaskById(const std::wstring& id, TaskRecord& task) override {
        return isAnswered(L"read " + id) && find(tasks, id, task);
    }
    bool SaveTask(const TaskRecord& task) override {
        saves.push_back(task);
        if (!accepts(L"create " + task.name))
            return false;
        tasks.push_back(task);
        tasks.back().id = L"created";
        return true;
    }
    bool UpdateTask(const TaskRecord& task) override {
        updates.push_back(task);
        TaskRecord stored;
        if (!accepts(L"update " + task.id) ||
            (find(tasks, task.id, stored) && stored.updateDateMills != task.updateDateMills))
            return false;
        std::replace_if(tasks.begin(), tasks.end(), hasId(task.id), task);
        return true;
    }
    bool MoveTaskToCatalog(const std::wstring& taskId, const std::wstring& catalogId) override {
        if (!accepts(L"task " + taskId + L" to " + catalogId))
            return false;
        for (auto& task : tasks)
            if (task.id == taskId)
                task.disclosureCatalogId = catalogId;
        return true;
    }
    bool BatchDeleteTasks(const std::vector<std::wstring>& ids) override {
        std::wstring call = L"remove";
        for (const auto& id : ids)
            call += L" " + id;
        if (!accepts(call))
            return false;
        std::erase_if(tasks, [&](const auto& task) { return std::count(ids.begin(), ids.end(), task.id) > 0; });
        return true;
    }
    bool UploadLocalFiles(std::vector<DISCLOSUREPACKAGE::UploadedFileRecord>& files) override {
        if (chosenFile.empty())
            return false;
        const std::wstring number = std::to_wstring(++uploads);
        files.push_back({0, L"file" + number, chosenFile, L"uuid" + number, L"md5" + number, 2048, L"pdf", 1});
        return true;
    }

    bool QueryPushConfig(const std::wstring& deptId, PushConfig& asked) override {
        const bool isAnswered = accepts(L"settings of " + deptId);
        asked = isAnswered ? config : PushConfig();
        return isAnswered;
    }
    bool SavePushConfig(const PushConfig& saved) override { return store(L"save settings", saved); }
    bool UpdatePushConfig(const PushConfig& saved) override { return store(L"update settings", saved); }

    void SetParentWidget(QWidget* widget) override { parent = widget; }
    QWidget* GetParentWidget() override { return parent; }
    int WriteFunctionLog(const std::wstring& title, const std::wstring& path) override {
        calls.push_back(L"log " + title + L" " + path);
        return 0;
    }
    std::wstring GetCurDeptId() override { return L"dept"; }
    std::wstring GetCurDeptName() override { return L"一项目部"; }
    bool ExportTasksToExcel(const std::vector<TaskRecord>&, const std::wstring&) override { return false; }
    std::wstring GetLinkThumbnail(const DISCLOSUREPACKAGE::LinkRecord&) override { return {}; }

    /// A site's catalogs: 全部(2) / 土建(3) / 基础(4), 主体(0) and 全部 / 机电(5).
    void fill() {
        catalogs = {{L"all", L"全部", L"", 2, 0},
                    {L"civil", L"土建", L"all", 3, 0},
                    {L"mep", L"机电", L"all", 5, 1},
                    {L"base", L"基础", L"civil", 4, 0},
                    {L"frame", L"主体", L"civil", 0, 1}};
    }
    /// `count` tasks "t0", "t1", ... of the catalog "base".
    void fillTasks(int count) {
        tasks.assign(static_cast<std::size_t>(count), {});
        for (std::size_t i = 0; i < tasks.size(); ++i) {
            tasks[i].id = L"t" + std::to_wstring(i);
            tasks[i].name = L"任务" + std::to_wstring(i);
            tasks[i].disclosureCatalogId = L"base";
            tasks[i].disclosureUserName = L"zhangwei";
            tasks[i].disclosureUserRealname = L"张伟";
            tasks[i].status = 1;
        }
    }
    /// The calls since the last time, joined by " | "; without the pages of the list.
    std::string takeCalls() {
        QStringList list;
        for (const std::wstring& call : std::exchange(calls, {}))
            if (call != L"page")
                list << QString::fromStdWString(call);
        return list.join(" | ").toStdString();
    }

private:
    static bool find(const std::vector<TaskRecord>& list, const std::wstring& id, TaskRecord& task) {
        const auto found = std::find_if(list.begin(), list.end(), hasId(id));
        if (found != list.end())
            task = *found;
        return found != list.end();
    }
    bool store(const std::wstring& call, const PushConfig& saved) {
        const bool isAccepted = accepts(call);
        if (isAccepted)
            config = saved;
        return isAccepted;
    }
    bool accepts(const std::wstring& call) {
        calls.push_back(call);
        return isAnswered(call);
    }
    bool isAnswered(const std::wstring& call) const {
        const bool fails = !refused.empty() && call.rfind(refused, 0) == 0;
        DISCLOSUREPACKAGE::SetLastFailure(!fails ? L"" : unsaid.empty() ? L"没有权限" : unsaid, unsaid.empty());
        return !fails;
    }

    std::vector<TaskRecord> m_cache;
};

}  // namespace support
