#pragma once

#include "sdk/packages/disclosure/Records.h"
#include "ui/common/BaseWnd.h"

/// The task editor.
class CAddTaskWnd : public CBaseWnd {
    Q_OBJECT

public:
    /// Edits `task`, a new one when it has no id, which then needs its catalog. True when it was saved. Shows nothing
    /// where the host offers no disclosure manager.
    static bool edit(const DISCLOSUREPACKAGE::TaskRecord& task);

private:
    CAddTaskWnd(QWidget* parent, const DISCLOSUREPACKAGE::TaskRecord& task);

    bool m_isSaved = false;
};
