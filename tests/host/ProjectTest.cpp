#include <gtest/gtest.h>
#include <stdexcept>

#include "host/managers/CurProjectMgr.h"

namespace {

using PROJECTPACKAGE::IProject;

/// Notes what it is told, with the project that is current at that moment.
class Observer : public PROJECTPACKAGE::IKpxProjLoadObserver {
public:
    Observer(std::string name, workbench::CCurProjectMgr& manager, std::vector<std::string>& notes)
        : m_name(std::move(name)), m_manager(manager), m_notes(notes) {}

    void OnProjectLoaded(IProject* project) override {
        note("loaded", project);
        onLoaded();
    }
    void OnProjectSaved(IProject* project) override { note("saved", project); }
    void OnProjectClosed(IProject* project) override { note("closed", project); }
    bool CanLoadProject(IProject* project) override {
        note("may load", project);
        return mayLoad;
    }
    bool CanCloseProject(IProject* project) override {
        note("may close", project);
        return mayClose;
    }

    bool mayLoad = true;
    bool mayClose = true;
    bool throws = false;
    std::function<void()> onLoaded = [] {};

private:
    void note(const std::string& what, IProject* project) {
        const IProject* current = m_manager.GetCurProject();
        m_notes.push_back(m_name + " " + what + " " + std::to_string(project->GetId()) + " in " +
                          std::to_string(current ? current->GetId() : 0));
        if (throws)
            throw std::runtime_error("observer failed");
    }

    std::string m_name;
    workbench::CCurProjectMgr& m_manager;
    std::vector<std::string>& m_notes;
};

class CurrentProject : public testing::Test {
protected:
    static PROJECTPACKAGE::ProjectRecord project(int32_t ppid) {
        PROJECTPACKAGE::ProjectRecord record;
        record.ppid = ppid;
        record.deptId = L"D" + std::to_wstring(ppid);
        return record;
    }
    void addBoth() {
        manager.AddProjLoadObserver(&second, 5);
        manager.AddProjLoadObserver(&first, -1);
    }
    std::vector<std::string> take() { return std::exchange(notes, {}); }

    using Notes = std::vector<std::string>;
    workbench::CCurProjectMgr manager;
    Notes notes;
    Observer first{"first", manager, notes};
    Observer second{"second", manager, notes};
};

TEST_F(CurrentProject, ObserversAreAskedAndToldInAscendingOrder) {
    addBoth();
    EXPECT_EQ(manager.GetCurDeptId(), L"");
    EXPECT_TRUE(manager.open(project(1)));
    EXPECT_EQ(manager.GetCurDeptId(), L"D1");
    EXPECT_EQ(take(), (Notes{"first may load 1 in 0", "second may load 1 in 0", "first loaded 1 in 1",
                             "second loaded 1 in 1"}));
    EXPECT_TRUE(manager.open(project(2)));
    EXPECT_EQ(take(), (Notes{"first may close 1 in 1", "second may close 1 in 1", "first may load 2 in 1",
                             "second may load 2 in 1", "first closed 1 in 0", "second closed 1 in 0",
                             "first loaded 2 in 2", "second loaded 2 in 2"}));
}

TEST_F(CurrentProject, AVetoLeavesEverythingAsItIs) {
    addBoth();
    manager.open(project(1));
    take();
    first.mayClose = false;
    EXPECT_FALSE(manager.open(project(2)));
    EXPECT_FALSE(manager.close());
    EXPECT_EQ(take(), (Notes{"first may close 1 in 1", "first may close 1 in 1"}));
    first.mayClose = true;
    second.mayLoad = false;
    EXPECT_FALSE(manager.open(project(2)));
    EXPECT_EQ(manager.GetCurDeptId(), L"D1");
    EXPECT_TRUE(manager.close());
    EXPECT_EQ(manager.GetCurProject(), nullptr);
}

TEST_F(CurrentProject, AnObserverThatThrowsHasNoObjectionAndHoldsNobodyUp) {
    addBoth();
    first.throws = true;
    EXPECT_TRUE(manager.open(project(1)));
    EXPECT_EQ(take(), (Notes{"first may load 1 in 0", "second may load 1 in 0", "first loaded 1 in 1",
                             "second loaded 1 in 1"}));
    EXPECT_TRUE(manager.close());
    EXPECT_EQ(take(), (Notes{"first may close 1 in 1", "second may close 1 in 1", "first closed 1 in 0",
                             "second closed 1 in 0"}));
    second.mayLoad = false;
    EXPECT_FALSE(manager.open(project(2))) << "the others' veto counts";
}

TEST_F(CurrentProject, RemovedObserversHearNothingMore) {
    manager.RemoveProjLoadObserver(&first);
    manager.AddProjLoadObserver(&first, 1);
    manager.AddProjLoadObserver(&first, 1);
    manager.AddProjLoadObserver(&second, 1);
    first.onLoaded = [this] { manager.RemoveProjLoadObserver(&second); };
    manager.open(project(1));
    EXPECT_EQ(take(), (Notes{"first may load 1 in 0", "second may load 1 in 0", "first loaded 1 in 1"}));
    manager.RemoveProjLoadObserver(&first);
    manager.close();
    EXPECT_TRUE(take().empty());
}

}  // namespace
