#pragma once

#include <vector>

#include <QObject>
#include <QVariantList>

#include "commands/DisclosureManage/ui/task/TaskFields.h"

/// A task that somebody else changed while it was edited: every field in which the user's version and the present one
/// differ, with a choice between the two.
class CTaskConflictViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString summary READ summary CONSTANT)
    Q_PROPERTY(QVariantList fields READ fields NOTIFY fieldsChanged)

public:
    using Task = DISCLOSUREPACKAGE::TaskRecord;

    /// `began` is what the user's version `own` was made from. What only the user changed is the user's at first, what
    /// only the others changed is theirs; what both changed is the user's.
    CTaskConflictViewModel(const Task& began, const Task& own, const Task& present, const PeopleNames& names,
                           QObject* parent = nullptr);

    /// Who changed the task last, and when.
    const QString& summary() const { return m_summary; }
    /// A map for each: its "title"; "began", "own" and "present" as texts; "isOwn", the choice; "isBoth", when both
    /// changed it.
    QVariantList fields() const { return m_rows; }
    /// The present version with the fields that were chosen; saving it overwrites nothing unseen.
    Task merged() const;
    bool isAccepted() const { return m_isAccepted; }

    /// Chooses the user's version of a field or the present one; a wrong number is ignored.
    Q_INVOKABLE void choose(int field, bool isOwn);
    Q_INVOKABLE void onClickOk();

signals:
    void fieldsChanged();
    void closeWnd();

private:
    const Task& m_own;
    const Task& m_present;
    QString m_summary;
    std::vector<TaskField> m_fields;  // those that differ
    QVariantList m_rows;
    bool m_isAccepted = false;
};

/// "任务已由某人于某时修改".
QString ChangeOf(const DISCLOSUREPACKAGE::TaskRecord& task, const PeopleNames& names);
