#pragma once

#include "commands/DisclosureManage/ui/TaskDialog.h"
#include "commands/DisclosureManage/ui/task/PeopleReading.h"
#include "ui/common/TreeModel.h"

class NameTreeModel;

/// The picker of the discloser.
class CSelectOwnerWnd : public CTaskDialog {
    Q_OBJECT
    Q_PROPERTY(TreeModel* ownerDataModel READ ownerDataModel NOTIFY ownerDataChanged)

public:
    /// Lets the user choose; `leftOut` are the login names of people not to be offered. False, and an untouched
    /// `person`, when nobody was chosen; then too where the host offers no disclosure manager, and nothing is shown.
    static bool choose(BASEPACKAGE::UserRecord& person, const QStringList& leftOut);

    TreeModel* ownerDataModel() const;

    Q_INVOKABLE bool isDepNode(const QModelIndex& tIndex) const;
    /// Shows those whose display or login name contains `sText`, in their departments.
    Q_INVOKABLE void setSearchText(const QString& sText);
    /// Takes the selected person, if there is one, and closes.
    Q_INVOKABLE void onClickOk();

signals:
    void ownerDataChanged();

private:
    CSelectOwnerWnd(const BASEPACKAGE::UserRecord& person, const QStringList& leftOut);
    void selectPerson(const QString& login);

    PeopleDirectory m_people;
    NameTreeModel* m_model;
    QString m_search;
    BASEPACKAGE::UserRecord m_person;
    PeopleReading m_reading;
    bool m_isChosen = false;
};
