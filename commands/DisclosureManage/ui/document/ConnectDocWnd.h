#pragma once

#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "commands/DisclosureManage/ui/document/DocumentLinks.h"

class CConnectDocModel;

/// The picker of documents of the project's store.
class CConnectDocWnd : public CTaskDialog {
    Q_OBJECT

public:
    /// Lets the user change which documents of the store are among `docs`. False, and an untouched list, when the user
    /// gives up; then too where the host offers no disclosure manager, and nothing is shown.
    static bool choose(DocumentLinks& docs);

private:
    explicit CConnectDocWnd(CConnectDocModel& model);
};
