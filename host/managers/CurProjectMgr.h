#pragma once

#include <memory>
#include <vector>

#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/IProjectDataMgr.h"

namespace workbench {

/// A project as plug-ins see it.
class Project final : public PROJECTPACKAGE::IProject {
public:
    explicit Project(PROJECTPACKAGE::ProjectRecord record) : m_record(std::move(record)) {}
    int32_t GetId() const override { return m_record.ppid; }
    std::wstring GetName() const override { return m_record.projName; }
    std::wstring GetDeptId() const override { return m_record.deptId; }

private:
    PROJECTPACKAGE::ProjectRecord m_record;
};

/// Keeps the open project and tells the observers when it changes. An observer that is removed while others are being
/// told is not told any more.
class CCurProjectMgr final : public BASECORE::FRAME::CMgrObject, public PROJECTPACKAGE::IKpxCurProjectMgr {
public:
    CCurProjectMgr();

    /// Adding an observer again only changes its order.
    void AddProjLoadObserver(PROJECTPACKAGE::IKpxProjLoadObserver* observer, int order) override;
    void RemoveProjLoadObserver(PROJECTPACKAGE::IKpxProjLoadObserver* observer) override;
    std::wstring GetCurDeptId() const override;
    PROJECTPACKAGE::IProject* GetCurProject() const override;

    /// Closes what is open and opens the project; false, and nothing has changed, when an observer vetoes either.
    bool open(const PROJECTPACKAGE::ProjectRecord& record);
    /// False when an observer vetoes it. Closing when nothing is open succeeds.
    bool close();

private:
    struct Entry {
        PROJECTPACKAGE::IKpxProjLoadObserver* observer;
        int order;
    };
    /// Asks or tells one observer after the other until `visit` answers false; then false. An observer that throws is
    /// logged and has no objection.
    template <class Visit>
    bool each(Visit visit) const;
    bool mayClose() const;
    void closeUnasked();

    std::vector<Entry> m_observers;  // ascending by order, equal ones as they came
    std::unique_ptr<Project> m_project;
};

}  // namespace workbench
