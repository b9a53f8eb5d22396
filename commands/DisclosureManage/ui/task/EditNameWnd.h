#pragma once

#include <functional>

#include <QString>

#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "sdk/packages/disclosure/Records.h"

/// The dialog in which a task is given another name.
class CEditNameWnd : public CTaskDialog {
    Q_OBJECT
    Q_PROPERTY(QString taskName READ taskName WRITE setTaskName NOTIFY taskNameChanged)
    Q_PROPERTY(QString note READ note NOTIFY noteChanged)

public:
    using Store = std::function<bool(const QString& name)>;

    /// Lets the user change the task's `name` until `store` has accepted it or the user gives up. Shows nothing where
    /// the host offers no disclosure manager.
    static void edit(const QString& taskId, const QString& name, const Store& store);

    const QString& taskName() const { return m_name; }
    void setTaskName(const QString& name);
    /// Who else has changed the task meanwhile, and its name now; empty as long as nobody is known to have.
    const QString& note() const { return m_note; }

    /// Stores what was typed and closes; a name that is refused stays to be corrected.
    Q_INVOKABLE void onClickOk();

signals:
    void taskNameChanged();
    void noteChanged();

private:
    CEditNameWnd(const QString& taskId, const QString& name, const Store& store);
    /// After a refusal, which the host has shown.
    void lookForConflict();

    const QString m_before;
    QString m_name;
    QString m_note;
    DISCLOSUREPACKAGE::TaskRecord m_seen;  // the version that the user knows of
    const Store& m_store;
    bool m_isDone = false;
};
