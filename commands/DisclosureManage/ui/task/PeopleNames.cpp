#include "commands/DisclosureManage/ui/task/PeopleNames.h"

#include <algorithm>
#include <iterator>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "ui/common/WideText.h"

using BASEPACKAGE::UserRecord;

namespace {

QString nameOf(const std::wstring& userName, const std::wstring& realName) {
    return FromWide(realName.empty() ? userName : realName);
}

QString withLogin(const QString& name, const std::wstring& userName) {
    return name + QLatin1Char('(') + FromWide(userName) + QLatin1Char(')');
}

}  // namespace

PeopleNames::PeopleNames(const std::vector<UserRecord>& people) {
    for (const auto& person : people)
        if (m_shownByLogin.emplace(person.userName, QString()).second)
            ++m_namesakes[nameOf(person.userName, person.realName)];
    for (const auto& person : people) {
        QString& shownName = m_shownByLogin[person.userName];
        if (!shownName.isNull())
            continue;
        const QString name = nameOf(person.userName, person.realName);
        shownName = distinct(name, person.userName, m_namesakes.value(name) == 1);
        m_loginByShown.insert(shownName, person.userName);
        m_shown.append(shownName);
    }
}

PeopleNames PeopleNames::ofDepartment(const std::wstring& deptId) {
    std::vector<UserRecord> people;
    if (const auto* departments =
            BASECORE::FRAME::LookupManager<BASEPACKAGE::IOrgDeptMgr>(BASECORE::NAMES::kDepartments))
        departments->GetUsers(people, deptId);
    return PeopleNames(people);
}

QString PeopleNames::distinct(const QString& name, const std::wstring& userName, bool alone) const {
    QString shownName = alone ? name : withLogin(name, userName);
    while (m_loginByShown.contains(shownName))
        shownName = withLogin(shownName, userName);
    return shownName;
}

QString PeopleNames::shown(const std::wstring& userName, const std::wstring& realName) const {
    const auto known = m_shownByLogin.find(userName);
    if (known != m_shownByLogin.end())
        return known->second;
    const QString name = nameOf(userName, realName);
    return distinct(name, userName, !m_namesakes.contains(name));
}

QStringList PeopleNames::shown(const std::vector<UserRecord>& people) const {
    const auto isKnown = [this](const UserRecord& person) { return knows(person.userName); };
    std::vector<UserRecord> strangers;
    std::remove_copy_if(people.begin(), people.end(), std::back_inserter(strangers), isKnown);
    const PeopleNames amongStrangers(strangers);
    QStringList names;
    for (const UserRecord& person : people)
        names.append(shown(person.userName,
                           isKnown(person) ? person.realName : amongStrangers.shown(person.userName).toStdWString()));
    return names;
}

QStringList PeopleNames::choices(const QString& first) const {
    QStringList names = m_shown;
    names.removeOne(first);
    names.prepend(first);
    return names;
}

std::wstring PeopleNames::userName(const QString& shownName) const {
    return m_loginByShown.value(shownName);
}

std::vector<UserRecord> ReceiversOf(const DISCLOSUREPACKAGE::TaskRecord& task) {
    std::vector<UserRecord> people;
    for (const auto& receiver : task.disclosureTaskReceiveUserList)
        people.push_back({receiver.userName, receiver.userRealname, receiver.userHeadUuid, {}});
    return people;
}

QString ShownReceivers(const DISCLOSUREPACKAGE::TaskRecord& task, const PeopleNames& names) {
    return names.shown(ReceiversOf(task)).join(QStringLiteral("、"));
}

QString ShownUpdater(const DISCLOSUREPACKAGE::TaskRecord& task, const PeopleNames& names) {
    return names.knows(task.updateBy) ? names.shown(task.updateBy) : FromWide(task.updateBy);
}
