#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include <QHash>
#include <QStringList>

#include "sdk/packages/IOrgDeptMgr.h"
#include "sdk/packages/disclosure/Records.h"

/// The people of a department by the names that every screen shows: the display name, or the login name where there is
/// none, with the login name behind it where another person would be shown so too. No two people are shown alike.
class PeopleNames {
public:
    PeopleNames() = default;
    /// Somebody listed twice counts once.
    explicit PeopleNames(const std::vector<BASEPACKAGE::UserRecord>& people);
    /// Without anybody where the host's organisation cannot be read.
    static PeopleNames ofDepartment(const std::wstring& deptId);

    /// The shown name of anybody; `realName` serves for those who are not of the department.
    QString shown(const std::wstring& userName, const std::wstring& realName = {}) const;
    /// Whether the login name is one of the department's.
    bool knows(const std::wstring& userName) const { return m_shownByLogin.count(userName) > 0; }
    /// Those of a list, in which those who are not of the department are told apart too.
    QStringList shown(const std::vector<BASEPACKAGE::UserRecord>& people) const;
    /// The shown names, `first` ahead of the others.
    QStringList choices(const QString& first) const;
    /// The login name behind a shown one; empty when nobody of the department is shown so.
    std::wstring userName(const QString& shownName) const;

private:
    QString distinct(const QString& name, const std::wstring& userName, bool alone) const;

    std::unordered_map<std::wstring, QString> m_shownByLogin;
    QHash<QString, std::wstring> m_loginByShown;
    QHash<QString, int> m_namesakes;  // people by name
    QStringList m_shown;              // in the order given
};

/// A task's receivers as the names and the pickers take them.
std::vector<BASEPACKAGE::UserRecord> ReceiversOf(const DISCLOSUREPACKAGE::TaskRecord& task);
/// Their names in one text.
QString ShownReceivers(const DISCLOSUREPACKAGE::TaskRecord& task, const PeopleNames& names);
/// Who changed the task last. The service sends the name that is shown already; a login name is one where it names
/// somebody.
QString ShownUpdater(const DISCLOSUREPACKAGE::TaskRecord& task, const PeopleNames& names);
