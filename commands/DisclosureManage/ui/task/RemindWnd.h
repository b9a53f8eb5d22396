#pragma once

#include "ui/common/BaseWnd.h"

/// The dialog of the department's reminder settings.
class CRemindWnd : public CBaseWnd {
    Q_OBJECT

public:
    /// Returns when the dialog was closed; shows nothing where the host offers no disclosure manager.
    static void edit();

private:
    explicit CRemindWnd(QWidget* parent);
};
