#pragma once

#include <functional>
#include <vector>

#include <QString>

#include "sdk/packages/disclosure/Records.h"

class PeopleNames;

/// What the editor of a task changes as one, a list of links as a whole too.
struct TaskField {
    using Task = DISCLOSUREPACKAGE::TaskRecord;

    QString title;
    std::function<QString(const Task&, const PeopleNames&)> text;  // as it is shown, empty for nothing
    std::function<bool(const Task&, const Task&)> isSame;
    std::function<void(const Task& from, Task& to)> copy;
};

/// All of them, in the order of the editor.
std::vector<TaskField> TaskFields();

/// Whether the editor would show the two alike.
bool IsSameTask(const DISCLOSUREPACKAGE::TaskRecord& a, const DISCLOSUREPACKAGE::TaskRecord& b);
