#include "commands/DisclosureManage/ui/task/DiscloserNames.h"

#include "ui/common/WideText.h"

namespace {

QString nameOf(const std::wstring& userName, const std::wstring& realName) {
    return FromWide(realName.empty() ? userName : realName);
}

QString withLogin(const QString& name, const std::wstring& userName) {
    return name + QStringLiteral(" (") + FromWide(userName) + QLatin1Char(')');
}

}  // namespace

DiscloserNames::DiscloserNames(const std::vector<BASEPACKAGE::UserRecord>& people) {
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

QString DiscloserNames::distinct(const QString& name, const std::wstring& userName, bool alone) const {
    QString shownName = alone ? name : withLogin(name, userName);
    while (m_loginByShown.contains(shownName))
        shownName = withLogin(shownName, userName);
    return shownName;
}

QString DiscloserNames::shown(const std::wstring& userName, const std::wstring& realName) const {
    const auto known = m_shownByLogin.find(userName);
    if (known != m_shownByLogin.end())
        return known->second;
    const QString name = nameOf(userName, realName);
    return distinct(name, userName, !m_namesakes.contains(name));
}

QStringList DiscloserNames::choices(const QString& first) const {
    QStringList names = m_shown;
    names.removeOne(first);
    names.prepend(first);
    return names;
}

std::wstring DiscloserNames::userName(const QString& shownName) const {
    return m_loginByShown.value(shownName);
}
