#pragma once

#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "sdk/packages/disclosure/Records.h"

class CAddTaskViewModel;

/// The task editor.
class CAddTaskWnd : public CTaskDialog {
    Q_OBJECT

public:
    /// Edits `task`, a new one when it has no id, which then needs its catalog. True when it was saved. Shows nothing
    /// where the host offers no disclosure manager.
    static bool edit(const DISCLOSUREPACKAGE::TaskRecord& task);

private:
    explicit CAddTaskWnd(const DISCLOSUREPACKAGE::TaskRecord& task);
    /// Asks before anything that was changed is lost.
    bool mayClose() const;

    CAddTaskViewModel* m_model;  // the view's
    bool m_isSaved = false;
};
