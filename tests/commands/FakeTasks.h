#pragma once

#include "sdk/packages/IOrgDeptMgr.h"
#include "tests/support/FakeDisclosureMgr.h"

/// A disclosure manager whose service holds tasks in memory, one page at a time; calls and refusals as in its base.
class FakeTasks : public support::FakeDisclosureMgr {
public:
    using TaskRecord = DISCLOSUREPACKAGE::TaskRecord;

    std::vector<TaskRecord> tasks;
    std::vector<DISCLOSUREPACKAGE::TaskQuery> queries;
    std::vector<TaskRecord> updates;

    bool PageTasks(const DISCLOSUREPACKAGE::TaskQuery& query, std::vector<TaskRecord>& page, int32_t& total) override {
        m_cache.clear();
        queries.push_back(query);
        if (!accepts(L"page"))
            return false;
        total = static_cast<int32_t>(tasks.size());
        const std::size_t first =
            static_cast<std::size_t>(query.currentPage - 1) * static_cast<std::size_t>(query.pageSize);
        for (std::size_t i = first; i < tasks.size() && page.size() < static_cast<std::size_t>(query.pageSize); ++i)
            page.push_back(tasks[i]);
        m_cache = page;
        return true;
    }
    bool FindCachedTask(const std::wstring& id, TaskRecord& task) override { return find(m_cache, id, task); }
    bool QueryTaskById(const std::wstring& id, TaskRecord& task) override {
        return isAnswered(L"read " + id) && find(tasks, id, task);
    }
    bool UpdateTask(const TaskRecord& task) override {
        updates.push_back(task);
        TaskRecord stored;
        if (!accepts(L"update " + task.id) ||
            (find(tasks, task.id, stored) && stored.updateDateMills != task.updateDateMills))
            return false;
        std::replace_if(
            tasks.begin(), tasks.end(), [&](const auto& other) { return other.id == task.id; }, task);
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

    /// `count` tasks "t0", "t1", ... of the catalog "base".
    void fillTasks(int count) {
        tasks.clear();
        for (int i = 0; i < count; ++i) {
            TaskRecord task;
            task.id = L"t" + std::to_wstring(i);
            task.name = L"任务" + std::to_wstring(i);
            task.disclosureCatalogId = L"base";
            task.disclosureUserName = L"zhangwei";
            task.disclosureUserRealname = L"张伟";
            task.status = 1;
            tasks.push_back(task);
        }
    }

private:
    static bool find(const std::vector<TaskRecord>& list, const std::wstring& id, TaskRecord& task) {
        const auto found = std::find_if(list.begin(), list.end(), [&](const auto& other) { return other.id == id; });
        if (found == list.end())
            return false;
        task = *found;
        return true;
    }

    std::vector<TaskRecord> m_cache;
};

/// The people of a department, two of whom have the same display name.
class FakePeople : public BASEPACKAGE::IOrgDeptMgr, public BASECORE::FRAME::CMgrObject {
public:
    FakePeople() : CMgrObject(BASECORE::NAMES::kDepartments) {}

    mutable int reads = 0;

    bool GetDeptName(std::wstring&, const std::wstring&) const override { return false; }
    bool GetDepartments(std::vector<BASEPACKAGE::DeptRecord>&, const std::wstring&) const override { return false; }
    bool GetUsers(std::vector<BASEPACKAGE::UserRecord>& users, const std::wstring& deptId) const override {
        ++reads;
        users = {{L"zhangwei", L"张伟", L"", deptId},
                 {L"lina", L"李娜", L"", deptId},
                 {L"zhangwei2", L"张伟", L"", deptId},
                 {L"noname", L"", L"", deptId}};
        return true;
    }
};
