#include "commands/DisclosureManage/ui/task/PeopleDirectory.h"

#include <string_view>

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "ui/common/WideText.h"

using BASECORE::FRAME::LookupManager;
using BASEPACKAGE::UserRecord;

namespace {

const QChar kSeparator = QChar(0x1f);  // nobody's name holds it

}  // namespace

bool PeopleDirectory::read() {
    auto* manager = FindDisclosureManager();
    const auto* organisation = LookupManager<BASEPACKAGE::IOrgDeptMgr>(BASECORE::NAMES::kDepartments);
    if (!manager || !organisation)
        return false;
    const std::wstring deptId = manager->GetCurDeptId();
    std::vector<BASEPACKAGE::DeptRecord> departments;
    std::vector<UserRecord> people;
    if (!organisation->GetDepartments(departments, deptId) || !organisation->GetUsers(people, deptId))
        return false;

    m_names = PeopleNames(people);
    m_entries.clear();
    m_entries.reserve(departments.size() + people.size());
    for (const auto& department : departments) {
        const bool isTop = m_entries.empty();  // its parent, if it has one, is none of ours
        m_entries.push_back({L"d" + department.id,
                             isTop ? std::wstring() : L"d" + department.parentId,
                             FromWide(department.name),
                             {},
                             {},
                             false});
    }
    // Separators at both ends keep a login name from being found inside a longer one.
    const QString leftOutText = kSeparator + m_leftOut.join(kSeparator) + kSeparator;
    for (const UserRecord& person : people) {
        const QString login = FromWide(person.userName);
        if (login.isEmpty() || leftOutText.contains(kSeparator + login + kSeparator))
            continue;
        const QString realName = FromWide(person.realName);
        m_entries.push_back({L"p" + person.userName, L"d" + person.deptId, login, realName,
                             (realName + kSeparator + login).toCaseFolded(), true});
    }
    m_places = FlatTreeOrder(
        m_entries, [](const Entry& entry) -> std::wstring_view { return entry.id; },
        [](const Entry& entry) -> std::wstring_view { return entry.parentId; }, Strays::UnderRoot);
    return true;
}

std::vector<char> PeopleDirectory::placesFor(const QString& search) const {
    const QString wanted = search.trimmed().toCaseFolded();
    return FoundPlaces(m_places, [&](const FlatTreePlace& place) {
        const Entry& entry = m_entries[static_cast<std::size_t>(place.record)];
        return entry.isPerson && entry.searched.contains(wanted);
    });
}
