#pragma once

#include <functional>

#include <QString>

#include "ui/common/BaseWnd.h"

/// The dialog in which a task is given another name.
class CEditNameWnd : public CBaseWnd {
    Q_OBJECT
    Q_PROPERTY(QString taskName READ taskName WRITE setTaskName NOTIFY taskNameChanged)

public:
    using Store = std::function<bool(const QString& name)>;

    /// Lets the user change `name` until `store` has accepted it or the user gives up. Shows nothing where the host
    /// offers no disclosure manager.
    static void edit(const QString& name, const Store& store);

    const QString& taskName() const { return m_name; }
    void setTaskName(const QString& name);

    /// Stores what was typed and closes; a name that is refused stays to be corrected.
    Q_INVOKABLE void onClickOk();

signals:
    void taskNameChanged();

private:
    CEditNameWnd(QWidget* parent, const QString& name, const Store& store);

    const QString m_before;
    QString m_name;
    const Store& m_store;
    bool m_isDone = false;
};
