#pragma once

#include <optional>

#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "sdk/packages/disclosure/Records.h"

class CTaskConflictViewModel;
class PeopleNames;

/// The dialog in which the user's version of a task and the present one are brought together.
class CTaskConflictWnd : public CTaskDialog {
    Q_OBJECT

public:
    /// Lets the user choose, field by field, where `own`, made from `began`, and `present` differ; where they do not,
    /// nothing is asked. Null when the user gives up.
    static std::optional<DISCLOSUREPACKAGE::TaskRecord> settle(const DISCLOSUREPACKAGE::TaskRecord& began,
                                                               const DISCLOSUREPACKAGE::TaskRecord& own,
                                                               const DISCLOSUREPACKAGE::TaskRecord& present,
                                                               const PeopleNames& names);

private:
    explicit CTaskConflictWnd(CTaskConflictViewModel& model);
};
