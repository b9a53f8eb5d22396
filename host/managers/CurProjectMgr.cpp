#include "host/managers/CurProjectMgr.h"

#include <algorithm>

#include "host/log/Guarded.h"
#include "sdk/basecore/ManagerNames.h"

namespace workbench {

using PROJECTPACKAGE::IKpxProjLoadObserver;

CCurProjectMgr::CCurProjectMgr() : CMgrObject(BASECORE::NAMES::kCurrentProject) {}

void CCurProjectMgr::AddProjLoadObserver(IKpxProjLoadObserver* observer, int order) {
    if (!observer)
        return;
    RemoveProjLoadObserver(observer);
    const auto behind = std::find_if(m_observers.begin(), m_observers.end(),
                                     [order](const Entry& entry) { return entry.order > order; });
    m_observers.insert(behind, {observer, order});
}

void CCurProjectMgr::RemoveProjLoadObserver(IKpxProjLoadObserver* observer) {
    std::erase_if(m_observers, [observer](const Entry& entry) { return entry.observer == observer; });
}

std::wstring CCurProjectMgr::GetCurDeptId() const {
    return m_project ? m_project->GetDeptId() : std::wstring();
}

PROJECTPACKAGE::IProject* CCurProjectMgr::GetCurProject() const {
    return m_project.get();
}

template <class Visit>
bool CCurProjectMgr::each(Visit visit) const {
    const std::vector<Entry> present = m_observers;
    return std::all_of(present.begin(), present.end(), [&](const Entry& asked) {
        const bool isStillThere = std::any_of(m_observers.begin(), m_observers.end(),
                                              [&](const Entry& entry) { return entry.observer == asked.observer; });
        bool goesOn = true;
        if (isStillThere)
            guarded("IKpxProjLoadObserver", [&] { goesOn = visit(*asked.observer); });
        return goesOn;
    });
}

bool CCurProjectMgr::open(const PROJECTPACKAGE::ProjectRecord& record) {
    auto project = std::make_unique<Project>(record);
    if (!mayClose() || !each([&](IKpxProjLoadObserver& observer) { return observer.CanLoadProject(project.get()); }))
        return false;
    closeUnasked();
    m_project = std::move(project);
    each([this](IKpxProjLoadObserver& observer) {
        observer.OnProjectLoaded(m_project.get());
        return true;
    });
    return true;
}

bool CCurProjectMgr::close() {
    if (!mayClose())
        return false;
    closeUnasked();
    return true;
}

bool CCurProjectMgr::mayClose() const {
    return !m_project ||
           each([this](IKpxProjLoadObserver& observer) { return observer.CanCloseProject(m_project.get()); });
}

void CCurProjectMgr::closeUnasked() {
    const std::unique_ptr<Project> closed = std::move(m_project);
    if (!closed)
        return;
    each([&closed](IKpxProjLoadObserver& observer) {
        observer.OnProjectClosed(closed.get());
        return true;
    });
}

}  // namespace workbench
