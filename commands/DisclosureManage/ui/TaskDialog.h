#pragma once

#include <QSize>
#include <QVariant>

#include "ui/common/BaseWnd.h"

/// What all dialogs of the tasks have in common. Each has a static operation that shows it, and shows nothing where the
/// host offers no disclosure manager.
class CTaskDialog : public CBaseWnd {
protected:
    /// A child of the host's main window.
    CTaskDialog();

    /// Lets the page know `value` by `name`; before it is loaded.
    void publish(const char* name, const QVariant& value);
    /// Fills the dialog with one of the pages in the screens' `folder`, which knows `object` by `name`, and connects
    /// the two.
    void load(const char* page, const char* name, QObject* object, QSize minimum, const char* folder = "task");
    /// 0.8 times the host's main window.
    QSize share() const;
    /// Asks whether what was changed may be lost.
    static bool mayDiscard();
};
