#include "commands/DisclosureManage/ui/task/TaskConflictWnd.h"

#include <QDialog>

#include "commands/DisclosureManage/ui/task/TaskConflictViewModel.h"

using DISCLOSUREPACKAGE::TaskRecord;

std::optional<TaskRecord> CTaskConflictWnd::settle(const TaskRecord& began, const TaskRecord& own,
                                                   const TaskRecord& present, const PeopleNames& names) {
    CTaskConflictViewModel model(began, own, present, names);
    if (model.fields().isEmpty())
        return model.merged();
    CTaskConflictWnd(model).frame().run();
    return model.isAccepted() ? std::optional(model.merged()) : std::nullopt;
}

CTaskConflictWnd::CTaskConflictWnd(CTaskConflictViewModel& model) {
    connect(&model, &CTaskConflictViewModel::closeWnd, frame().dialog(), &QDialog::close);
    load("TaskConflict.qml", "conflictModel", &model, {720, 420});
}
