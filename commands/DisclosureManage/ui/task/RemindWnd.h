#pragma once

#include "commands/DisclosureManage/ui/TaskDialog.h"

/// The dialog of the department's reminder settings.
class CRemindWnd : public CTaskDialog {
    Q_OBJECT

public:
    /// Returns when the dialog was closed; shows nothing where the host offers no disclosure manager.
    static void edit();

private:
    CRemindWnd();
};
